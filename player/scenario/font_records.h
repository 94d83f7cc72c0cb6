#pragma once

#include "fonts/font_info.h"
#include "player/scenario/arguments.h"

namespace scenario {

/// A font record as a table with all its fields.
Value value_of(const LOGFONTW& record);
/// What is missing is 0, what does not fit a field of one byte is cut to it, an overlong face is cut.
LOGFONTW font_record(const Value& table, const std::string& what);

}  // namespace scenario
