#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <unordered_map>

#include "host/core/picture_file.h"

namespace host {

/// Pictures by file. A file that did not change since it was read is not read again; a file that is no picture is
/// looked at anew each time.
class PictureStore {
public:
    /// Null if there is no picture in that file. `path` as projects write it.
    std::shared_ptr<const Picture> get(const std::wstring& path);
    /// Lets go of pictures that nobody else held during the last frames: a project that is opened again finds its
    /// pictures, one that is gone does not keep its own.
    void next_frame();
    /// Lets go of every picture that nobody else holds.
    void forget_unused();

private:
    struct Entry {
        std::filesystem::file_time_type written;
        std::uintmax_t length;
        std::shared_ptr<const Picture> picture;
        int frames_unheld;
    };
    std::unordered_map<std::string, Entry> m_entries;
};

}  // namespace host
