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
#include <utility>

namespace host {
namespace {

namespace fs = std::filesystem;

std::string because(const char* what) { return std::string(what) + ": " + std::strerror(errno); }

class Descriptor {
public:
    explicit Descriptor(int number = -1) : m_number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(); }
    bool is_open() const { return m_number >= 0; }
    int number() const { return m_number; }
    void open(int number) {
        close();
        m_number = number;
    }
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

    /// Makes an empty file, with the rights of `model` or else the usual ones.
    bool begin(const fs::path& model, std::string& error) {
        m_file.open(reserve());
        m_is_there = m_file.is_open();
        if (!m_is_there) return failed("cannot make a new file in its folder", error);
        return set_rights(m_file.number(), model) || failed("cannot set the rights of the new file", error);
    }
    bool append(std::string_view bytes, std::string& error) const {
        return write_all(m_file.number(), bytes) || failed("cannot write", error);
    }
    /// It is on the disk and closed afterwards.
    bool finish(std::string& error) {
        if (uninterrupted([this] { return ::fsync(m_file.number()); }) != 0)
            return failed("cannot flush to the disk", error);
        return m_file.close() || failed("cannot finish writing", error);
    }
    const std::string& path() const { return m_path; }

    /// Becomes a second name of a file, or its copy where the file system knows no second names.
    bool keep(const fs::path& file, std::string& error) {
        if (Descriptor(reserve()).is_open()) {
            ::unlink(m_path.c_str());
            m_is_there = ::link(file.c_str(), m_path.c_str()) == 0;
        }
        std::string bytes;
        return m_is_there || (read_whole_file(file.string(), SIZE_MAX, bytes, error) && begin(file, error) &&
                              append(bytes, error) && finish(error));
    }

    bool rename_to(const fs::path& target) {
        if (uninterrupted([&] { return ::rename(m_path.c_str(), target.c_str()); }) != 0) return false;
        m_is_there = false;
        return true;
    }

private:
    static bool failed(const char* what, std::string& error) {
        error = because(what);
        return false;
    }
    int reserve() {
        constexpr std::string_view open_end = "XXXXXX";
        m_path.replace(m_path.size() - open_end.size(), open_end.size(), open_end);
        const int file = ::mkstemp(m_path.data());
        if (file >= 0) (void)::fcntl(file, F_SETFD, FD_CLOEXEC);
        return file;
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
    Descriptor m_file;
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

/// Made ahead of the new file: once that stands there must be nothing left that asks for memory.
struct NewFile::Places {
    explicit Places(const fs::path& file)
        : target(file), backup(backup_of(file.string())), folder(file.parent_path()), fresh(file), old(file) {}
    fs::path target;
    fs::path backup;
    fs::path folder;
    PassingName fresh;
    PassingName old;
};

NewFile::NewFile(std::string path) : m_path(std::move(path)) {}

NewFile::~NewFile() = default;

bool NewFile::begin(std::string& error) {
    fs::path target;
    if (!follow_links(m_path, target, error)) return false;
    std::error_code code;
    const fs::file_status status = fs::status(target, code);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        error = "cannot replace: it is no plain file";
        return false;
    }
    // The working folder may be another one by the time that the file takes its place.
    const fs::path absolute = fs::absolute(target, code);
    auto places = std::make_unique<Places>(code ? target : absolute);
    if (!places->fresh.begin(target, error)) return false;
    m_places = std::move(places);
    return true;
}

bool NewFile::write(std::string_view bytes, std::string& error) {
    return (m_places || begin(error)) && m_places->fresh.append(bytes, error);
}

bool NewFile::read(std::string& bytes, std::string& error) const {
    return read_whole_file(m_places->fresh.path(), SIZE_MAX, bytes, error);
}

bool NewFile::take_place(OldFile old_file, std::string& error) {
    Places& places = *m_places;
    if (!places.fresh.finish(error)) return false;
    std::error_code code;
    const bool is_kept = old_file == OldFile::KEPT && fs::exists(fs::status(places.target, code));
    if (is_kept && !places.old.keep(places.target, error)) {
        error = "cannot keep the old file: " + error;
        return false;
    }
    if (!places.fresh.rename_to(places.target)) {
        error = because("cannot put the new file in the place of the old one");
        return false;
    }
    // Behind the new file, so that a save which fails takes nothing from an older version that is still kept.
    if (is_kept) (void)places.old.rename_to(places.backup);
    flush_folder(places.folder);
    return true;
}

bool replace_file(const std::string& path, std::string_view bytes, OldFile old_file, std::string& error) {
    NewFile file(path);
    return file.write(bytes, error) && file.take_place(old_file, error);
}

}  // namespace host
