#include "host/core/project_disk.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace host {
namespace {

namespace fs = std::filesystem;

std::string because(const char* what) { return std::string(what) + ": " + std::strerror(errno); }

class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(); }
    bool is_open() const { return m_number >= 0; }
    int number() const { return m_number; }
    // The result counts: some file systems report a full disk only here.
    bool close() {
        const int number = m_number;
        m_number = -1;
        return number < 0 || ::close(number) == 0;
    }

private:
    int m_number;
};

bool write_all(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// The file that a path means in the end, also where a link points to nothing yet.
bool follow_links(const std::string& path, fs::path& target, std::string& error) {
    constexpr int most_links = 40;
    target = path;
    for (int links = 0; links < most_links; ++links) {
        std::error_code code;
        if (!fs::is_symlink(fs::symlink_status(target, code))) return true;
        const fs::path next = fs::read_symlink(target, code);
        if (code) {
            error = "cannot follow the link: " + code.message();
            return false;
        }
        target = next.is_absolute() ? next : target.parent_path() / next;
    }
    error = "cannot follow the link: it leads in a circle";
    return false;
}

// A new file is made with the rights that the old one has, or with the usual ones.
bool write_new_file(int file, const fs::path& old_file, std::string_view bytes, std::string& error) {
    struct stat old {};
    if (::stat(old_file.c_str(), &old) == 0) {
        if (::fchmod(file, old.st_mode & 07777) != 0) {
            error = because("cannot take over the rights of the old file");
            return false;
        }
    } else {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        if (::fchmod(file, 0666 & ~mask) != 0) {
            error = because("cannot set the rights of the new file");
            return false;
        }
    }
    if (!write_all(file, bytes)) {
        error = because("cannot write");
        return false;
    }
    if (::fsync(file) != 0) {
        error = because("cannot flush to the disk");
        return false;
    }
    return true;
}

// Makes the new name itself survive a crash; a folder that can't be flushed is no reason to fail.
void flush_folder(const fs::path& folder) {
    const Descriptor opened(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.is_open()) (void)::fsync(opened.number());
}

}  // namespace

bool read_whole_file(const std::string& path, std::size_t largest, std::string& bytes, std::string& error) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat facts {};
    if (!file.is_open() || ::fstat(file.number(), &facts) != 0) {
        error = because("cannot open");
        return false;
    }
    if (S_ISDIR(facts.st_mode)) {
        error = "cannot open: it is a folder";
        return false;
    }
    std::string read;
    char block[65536];
    for (;;) {
        const ssize_t count = ::read(file.number(), block, sizeof block);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) {
            error = because("cannot read");
            return false;
        }
        if (count == 0) break;
        read.append(block, static_cast<std::size_t>(count));
        if (read.size() > largest) {
            error = "too large (more than " + std::to_string(largest) + " bytes)";
            return false;
        }
    }
    bytes = std::move(read);
    return true;
}

bool replace_file(const std::string& path, std::string_view bytes, std::string& error) {
    fs::path target;
    if (!follow_links(path, target, error)) return false;
    std::error_code code;
    const fs::file_status status = fs::status(target, code);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        error = "cannot replace: it is no plain file";
        return false;
    }
    std::string beside = target.string() + ".XXXXXX";
    Descriptor file(::mkstemp(beside.data()));
    if (!file.is_open()) {
        error = because("cannot make a new file in its folder");
        return false;
    }
    bool good = write_new_file(file.number(), target, bytes, error);
    if (!file.close() && good) {
        error = because("cannot write");
        good = false;
    }
    if (good && ::rename(beside.c_str(), target.c_str()) != 0) {
        error = because("cannot put the new file in the place of the old one");
        good = false;
    }
    if (good)
        flush_folder(target.parent_path());
    else
        ::unlink(beside.c_str());
    return good;
}

}  // namespace host
