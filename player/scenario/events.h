#pragma once

#include <optional>
#include <string_view>

#include "host/system/input.h"

namespace scenario {

/// The mouse events by the names that scenarios give them; nothing for any other.
std::optional<host::InputKind> event_kind(std::string_view name);
/// Null for an event that scenarios don't have.
const char* event_name(host::InputKind kind);

}  // namespace scenario
