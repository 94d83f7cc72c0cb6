#include "host/core/project_disk.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
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
    // The result counts: some file systems report a full disk only here. Interrupted or not, the number is gone.
    bool close() {
        const int number = m_number;
        m_number = -1;
        return number < 0 || ::close(number) == 0 || errno == EINTR;
    }

private:
    int m_number;
};

/// Calls again what a signal has interrupted.
template <class Call>
auto uninterrupted(Call call) {
    for (;;) {
        const auto result = call();
        if (result != -1 || errno != EINTR) return result;
    }
}

bool write_all(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = uninterrupted([&] { return ::write(file, bytes.data(), bytes.size()); });
        if (written == 0) errno = ENOSPC;
        if (written <= 0) return false;
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

/// A name beside a file, for what is to take a place when it is whole; gone with this object if it never did.
class PassingName {
public:
    explicit PassingName(const fs::path& target) : m_path(target.string() + ".XXXXXX") {}
    PassingName(const PassingName&) = delete;
    PassingName& operator=(const PassingName&) = delete;
    ~PassingName() {
        if (m_is_there) ::unlink(m_path.c_str());
    }

    /// Makes a file that is on the disk and closed afterwards, with the rights of `model` or else the usual ones.
    bool write(const fs::path& model, std::string_view bytes, std::string& error) {
        Descriptor file(reserve());
        m_is_there = file.is_open();
        const char* failed = nullptr;
        if (!m_is_there)
            failed = "cannot make a new file in its folder";
        else if (!set_rights(file.number(), model))
            failed = "cannot set the rights of the new file";
        else if (!write_all(file.number(), bytes))
            failed = "cannot write";
        else if (uninterrupted([&] { return ::fsync(file.number()); }) != 0)
            failed = "cannot flush to the disk";
        else if (!file.close())
            failed = "cannot finish writing";
        if (failed) error = because(failed);
        return !failed;
    }

    /// Becomes a second name of a file, or its copy where the file system knows no second names.
    bool keep(const fs::path& file, std::string& error) {
        if (Descriptor(reserve()).is_open()) {
            ::unlink(m_path.c_str());
            m_is_there = ::link(file.c_str(), m_path.c_str()) == 0;
        }
        std::string bytes;
        return m_is_there || (read_whole_file(file.string(), SIZE_MAX, bytes, error) && write(file, bytes, error));
    }

    bool rename_to(const fs::path& target) {
        if (uninterrupted([&] { return ::rename(m_path.c_str(), target.c_str()); }) != 0) return false;
        m_is_there = false;
        return true;
    }

private:
    int reserve() {
        constexpr std::string_view open_end = "XXXXXX";
        m_path.replace(m_path.size() - open_end.size(), open_end.size(), open_end);
        return ::mkstemp(m_path.data());
    }
    static bool set_rights(int file, const fs::path& model) {
        struct stat old {};
        if (::stat(model.c_str(), &old) == 0) return ::fchmod(file, old.st_mode & 07777) == 0;
        const mode_t mask = ::umask(0);
        ::umask(mask);
        return ::fchmod(file, 0666 & ~mask) == 0;
    }

    std::string m_path;
    bool m_is_there = false;
};

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
    read.reserve(std::min(static_cast<std::size_t>(facts.st_size), largest) + 1);
    // Of a file that grows meanwhile all is read.
    for (;;) {
        constexpr std::size_t piece = 65536;
        const std::size_t size = read.size();
        read.resize(std::max(std::min(size + piece, read.capacity()), size + 1));
        const ssize_t count =
            uninterrupted([&] { return ::read(file.number(), read.data() + size, read.size() - size); });
        if (count < 0) {
            error = because("cannot read");
            return false;
        }
        read.resize(size + static_cast<std::size_t>(count));
        if (count == 0) break;
        if (read.size() > largest) {
            error = "too large (more than " + std::to_string(largest) + " bytes)";
            return false;
        }
    }
    bytes = std::move(read);
    return true;
}

std::string backup_of(const std::string& path) {
    fs::path target;
    std::string ignored;
    follow_links(path, target, ignored);
    return target.string() + ".bak";
}

bool replace_file(const std::string& path, std::string_view bytes, OldFile old_file, std::string& error) {
    fs::path target;
    if (!follow_links(path, target, error)) return false;
    std::error_code code;
    const fs::file_status status = fs::status(target, code);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        error = "cannot replace: it is no plain file";
        return false;
    }
    // Ahead of the new file: once that stands there must be nothing left that asks for memory.
    const fs::path backup = backup_of(target.string());
    const fs::path folder = target.parent_path();
    PassingName fresh(target);
    if (!fresh.write(target, bytes, error)) return false;
    PassingName old(target);
    const bool is_kept = old_file == OldFile::KEPT && fs::exists(status);
    if (is_kept && !old.keep(target, error)) {
        error = "cannot keep the old file: " + error;
        return false;
    }
    if (!fresh.rename_to(target)) {
        error = because("cannot put the new file in the place of the old one");
        return false;
    }
    // Behind the new file, so that a save which fails takes nothing from an older version that is still kept.
    if (is_kept) (void)old.rename_to(backup);
    flush_folder(folder);
    return true;
}

}  // namespace host
