#pragma once

// Whole files in and out.

#include <string>
#include <string_view>

namespace host {

/// False: `error` says why, without the file's name. A file above `largest` bytes is refused before it is read.
bool read_whole_file(const std::string& path, std::size_t largest, std::string& bytes, std::string& error);

/// What becomes of the file that stood in a new one's place.
enum class OldFile {
    GONE,
    KEPT,  // under the name that `backup_of` gives, in the place of what was kept there before
};
/// Beside the file itself where `path` is a link.
std::string backup_of(const std::string& path);

/// Replaces the file in one step: written beside it, flushed to the disk, renamed over it. Symbolic links are followed,
/// rights are kept. False: the file is as it was, nothing is left beside it, and `error` says what failed.
bool replace_file(const std::string& path, std::string_view bytes, OldFile old_file, std::string& error);

}  // namespace host
