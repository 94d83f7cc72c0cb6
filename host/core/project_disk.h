#pragma once

// Whole files in and out.

#include <memory>
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

/// A file on its way into the place of another one, or of none, which it takes in one step: written beside it, flushed
/// to the disk, renamed over it. Symbolic links are followed, rights are kept. Where something fails, `error` says
/// what; the old file is then as it was. Nothing is left beside it of a file that did not take its place.
class NewFile {
public:
    explicit NewFile(std::string path);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Further bytes, at the end. The first make the file; where that fails they may be given again.
    bool write(std::string_view bytes, std::string& error);
    bool is_begun() const { return m_places != nullptr; }
    /// What was written so far.
    bool read(std::string& bytes, std::string& error) const;
    /// Once, behind the last bytes.
    bool take_place(OldFile old_file, std::string& error);

private:
    bool begin(std::string& error);

    struct Places;
    std::string m_path;
    /// Null until the file is made.
    std::unique_ptr<Places> m_places;
};

/// A new file of these bytes takes the place of what is there.
bool replace_file(const std::string& path, std::string_view bytes, OldFile old_file, std::string& error);

}  // namespace host
