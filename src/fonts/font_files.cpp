// What the table learns from the machine's fonts. The name map starts empty: every name then resolves to the default
// font or to a file beside the project, and nothing is published.

#include "fonts/font_info.h"

bool CGlobalFontInfo::generate_fontname_fontpath_map() { return false; }

void CGlobalFontInfo::scan_TTF_OTF_file_for_name(tstringW) {}

void CGlobalFontInfo::scan_TTC_file_for_name(tstringW) {}

void CGlobalFontInfo::copy_all_fontfile_to_texture_folder() {}
