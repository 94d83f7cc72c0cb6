#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>

#include "platform/platform.h"

namespace platform {

/// How a file looks from outside: one that still looks the same has the same content.
struct FileStamp {
    std::uint64_t size = 0;
    std::filesystem::file_time_type time;
    bool operator==(const FileStamp&) const = default;
};

/// False for what is not there and for devices, pipes and folders, which have no end.
bool read_stamp(const NativePath& path, FileStamp& stamp);

/// A file that is read in pieces from anywhere, without a buffer. Never waits for the other end of a pipe.
class InputFile {
public:
    explicit InputFile(const NativePath& path);
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    bool is_open() const;
    /// Gives how many bytes there were: fewer than `count` only where the file ends or can't be read.
    std::size_t read(std::uint64_t position, unsigned char* target, std::size_t count);

private:
    // The system's handle.
    std::intptr_t m_handle;
};

}  // namespace platform
