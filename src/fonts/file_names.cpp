#include "fonts/file_names.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>

#include "engine/services.h"
#include "fonts/code_units.h"
#include "fonts/sfnt_names.h"
#include "platform/platform.h"

namespace {

namespace fs = std::filesystem;

/// A file that is read in small pieces from near each other, through a window.
class FontFile {
public:
    explicit FontFile(const fs::path& path) : m_file(path, std::ios::binary) {}
    bool is_open() const { return m_file.is_open(); }

    std::size_t read(std::uint64_t position, unsigned char* target, std::size_t count) {
        if (count > m_window.size()) return read_past_window(position, target, count);
        if (position < m_start || position + count > m_start + m_filled) {
            m_start = position;
            m_filled = read_past_window(position, m_window.data(), m_window.size());
        }
        const std::size_t there = std::min(count, m_filled - static_cast<std::size_t>(position - m_start));
        std::memcpy(target, m_window.data() + (position - m_start), there);
        return there;
    }

private:
    std::size_t read_past_window(std::uint64_t position, unsigned char* target, std::size_t count) {
        m_file.clear();
        m_file.seekg(static_cast<std::streamoff>(position));
        if (!m_file) return 0;
        m_file.read(reinterpret_cast<char*>(target), static_cast<std::streamsize>(count));
        return static_cast<std::size_t>(m_file.gcount());
    }

    std::ifstream m_file;
    std::array<unsigned char, 4096> m_window;
    std::uint64_t m_start = 0;
    std::size_t m_filled = 0;
};

tstringW text_of(const StoredName& name) {
    std::wstring text;
    switch (name.text) {
        case StoredName::NARROW:
            MultiByteToWideChar(name.narrow, text);
            break;
        case StoredName::BIG5:
            text = platform::wide_from_big5(name.narrow);
            break;
        case StoredName::WIDE:
            return wide_from_units(name.wide);
    }
    return text;
}

/// False where the file can't be opened.
bool read_names(const fs::path& path, FontFileKind kind, std::vector<tstringW>& names) {
    FontFile file(path);
    if (!file.is_open()) return false;
    const ByteReader reader = [&file](std::uint64_t position, unsigned char* target, std::size_t count) {
        return file.read(position, target, count);
    };
    for (const StoredName& name : kind == FontFileKind::SINGLE ? names_of_font(reader) : names_of_collection(reader)) {
        tstringW text = text_of(name);
        if (!text.empty()) names.push_back(std::move(text));
    }
    return true;
}

/// How a file looks from outside.
struct Stamp {
    std::uintmax_t size;
    fs::file_time_type time;
    bool operator==(const Stamp&) const = default;
};

// Devices and pipes, which have no end, are no font files.
bool read_stamp(const fs::path& path, Stamp& stamp) {
    std::error_code problem;
    if (!fs::is_regular_file(path, problem)) return false;
    stamp.size = fs::file_size(path, problem);
    if (problem) return false;
    stamp.time = fs::last_write_time(path, problem);
    return !problem;
}

// A file that was written a moment ago may change once more within the same tick of the file system's clock, and would
// then look as before.
bool is_settled(const Stamp& stamp) { return fs::file_time_type::clock::now() - stamp.time > std::chrono::seconds(2); }

struct Known {
    Stamp stamp;
    std::vector<tstringW> names;
};
using Key = std::pair<tstringW, FontFileKind>;

std::map<Key, Known>& known_files() {
    static std::map<Key, Known> files;
    return files;
}

}  // namespace

std::vector<tstringW> names_of_file(const tstringW& path, FontFileKind kind) {
    const fs::path file = platform::file_path(path);
    Stamp stamp;
    if (!read_stamp(file, stamp)) return {};
    const Key key{path, kind};
    const auto known = known_files().find(key);
    if (known != known_files().end() && known->second.stamp == stamp) return known->second.names;
    std::vector<tstringW> names;
    const bool was_read = read_names(file, kind, names);
    if (was_read && is_settled(stamp)) known_files().insert_or_assign(key, Known{stamp, names});
    return names;
}

std::vector<tstringW> read_names_of_file(const tstringW& path, FontFileKind kind) {
    const fs::path file = platform::file_path(path);
    Stamp ignored;
    std::vector<tstringW> names;
    if (read_stamp(file, ignored)) (void)read_names(file, kind, names);
    return names;
}
