#include "fonts/file_names.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <map>

#include "engine/services.h"
#include "fonts/code_units.h"
#include "fonts/sfnt_names.h"
#include "platform/input_file.h"
#include "platform/platform.h"

namespace {

namespace fs = std::filesystem;

/// A file that is read in small pieces from near each other, through a window.
class FontFile {
public:
    explicit FontFile(platform::InputFile& file) : m_file(file) {}

    std::size_t read(std::uint64_t position, unsigned char* target, std::size_t count) {
        if (count > m_window.size()) return m_file.read(position, target, count);
        if (position < m_start || position + count > m_start + m_filled) {
            m_start = position;
            m_filled = m_file.read(position, m_window.data(), m_window.size());
        }
        const std::size_t there = std::min(count, m_filled - static_cast<std::size_t>(position - m_start));
        std::memcpy(target, m_window.data() + (position - m_start), there);
        return there;
    }

private:
    platform::InputFile& m_file;
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

std::vector<tstringW> read_names(platform::InputFile& input, FontFileKind kind) {
    FontFile file(input);
    const ByteReader reader = [&file](std::uint64_t position, unsigned char* target, std::size_t count) {
        return file.read(position, target, count);
    };
    std::vector<tstringW> names;
    for (const StoredName& name : kind == FontFileKind::SINGLE ? names_of_font(reader) : names_of_collection(reader)) {
        tstringW text = text_of(name);
        if (!text.empty()) names.push_back(std::move(text));
    }
    return names;
}

// A file that was written a moment ago may change once more within the same tick of the file system's clock, and would
// then look as before.
bool is_settled(const platform::FileStamp& stamp) {
    return fs::file_time_type::clock::now() - stamp.time > std::chrono::seconds(2);
}

struct Known {
    platform::FileStamp stamp;
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
    platform::FileStamp stamp;
    if (!platform::read_stamp(file, stamp)) return {};
    const Key key{path, kind};
    const auto known = known_files().find(key);
    if (known != known_files().end() && known->second.stamp == stamp) return known->second.names;
    platform::InputFile input(file);
    if (!input.is_open()) return {};
    std::vector<tstringW> names = read_names(input, kind);
    if (is_settled(input.stamp())) known_files().insert_or_assign(key, Known{input.stamp(), names});
    return names;
}

std::vector<tstringW> read_names_of_file(const tstringW& path, FontFileKind kind) {
    platform::InputFile input(platform::file_path(path));
    return input.is_open() ? read_names(input, kind) : std::vector<tstringW>();
}
