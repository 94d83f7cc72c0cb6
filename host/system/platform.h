#pragma once

#include "platform/platform.h"

namespace host {

/// Exchanges what the module's questions to the operating system are answered with. Every entry must be set.
void set_platform_functions(const platform_functions& functions);
/// The answers a program has from its start: SDL's cursor where SDL shows a window, else nothing; the fonts of the font
/// system; messages on the standard error.
const platform_functions& default_platform_functions();

}  // namespace host
