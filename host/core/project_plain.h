#pragma once

// Project texts in the very form in which they are written. What people have changed may look otherwise: the general
// reader takes that, and knows what to say of what is wrong.

#include <optional>
#include <string_view>

#include "host/core/project_document.h"

namespace host {

inline constexpr int project_version = 1;

/// The same document that the general reader makes of the text; empty if the text is not of that form, or wrong.
std::optional<ProjectDocument> parse_plain_project(std::string_view text);

}  // namespace host
