#pragma once

#include <string>

namespace host {

/// Path of a font file that has Latin and simplified Chinese glyphs, the same on equal machines; empty if there is
/// none.
std::wstring default_font_path();

}  // namespace host
