#pragma once

#include <string>
#include <vector>

namespace host {

/// A font file of the system.
struct FontFile {
    /// UTF-8.
    std::string path;
    /// The English full name of each font in it, in the file's order, with " & " between them; UTF-8.
    std::string names;
    /// The file's format by its usual name, such as "TrueType".
    std::string format;
};

/// The outline fonts that the font system knows, by path. False where there is no font system.
bool list_font_files(std::vector<FontFile>& files);

}  // namespace host
