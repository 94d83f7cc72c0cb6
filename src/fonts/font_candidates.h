#pragma once

#include <string>
#include <vector>

#include "platform_types.h"

/// The names under which a record's font may be known, in the order in which they are tried. None for the engine's
/// default font, which is not looked for.
std::vector<std::wstring> font_candidates(const LOGFONTW& record);
