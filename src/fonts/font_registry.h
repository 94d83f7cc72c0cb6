#pragma once

#include <vector>

#include "engine/text.h"
#include "platform/platform.h"

/// The name without what stands in parentheses behind it and the blank ahead of that: "Arial (TrueType)" is "Arial". A
/// name that begins with "(" stays whole. What stands ahead of "(" goes too where it is no blank.
tstringW cut_font_name(const std::wstring& listed);
/// A file that names no folder lies in the fonts folder.
tstringW font_path(const std::wstring& folder, const std::wstring& file);
/// A collection by its path: ".ttc" in any case, anywhere in it.
bool is_collection_path(const std::wstring& path);

struct NamedFile {
    tstringW name;
    tstringW path;
};
/// The list by cut name, in the order of 16-bit units; of several with one name the first.
std::vector<NamedFile> sorted_fonts(const font_list& list);
