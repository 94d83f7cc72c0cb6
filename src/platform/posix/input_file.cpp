#include "platform/input_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <limits>

namespace {

// False for what has no stamp.
bool stamp_of(const struct stat& seen, platform::FileStamp& stamp) {
    if (!S_ISREG(seen.st_mode)) return false;
    const auto since_epoch = std::chrono::seconds(seen.st_mtim.tv_sec) + std::chrono::nanoseconds(seen.st_mtim.tv_nsec);
    const std::chrono::sys_time<std::chrono::nanoseconds> time(since_epoch);
    stamp = {static_cast<std::uint64_t>(seen.st_size), std::chrono::file_clock::from_sys(time)};
    return true;
}

}  // namespace

bool platform::read_stamp(const NativePath& path, FileStamp& stamp) {
    struct stat seen;
    return stat(path.c_str(), &seen) == 0 && stamp_of(seen, stamp);
}

platform::InputFile::InputFile(const NativePath& path)
    : m_handle(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)) {}

platform::InputFile::~InputFile() {
    if (is_open()) close(static_cast<int>(m_handle));
}

bool platform::InputFile::is_open() const { return m_handle >= 0; }

std::size_t platform::InputFile::read(std::uint64_t position, unsigned char* target, std::size_t count) {
    std::size_t done = 0;
    while (done < count && position + done <= static_cast<std::uint64_t>(std::numeric_limits<off_t>::max())) {
        const ssize_t got =
            pread(static_cast<int>(m_handle), target + done, count - done, static_cast<off_t>(position + done));
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) break;
        done += static_cast<std::size_t>(got);
    }
    return done;
}
