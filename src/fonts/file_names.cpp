#include "fonts/file_names.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <map>
#include <span>

#include "engine/services.h"
#include "fonts/code_units.h"
#include "fonts/sfnt_names.h"
#include "platform/input_file.h"
#include "platform/platform.h"

namespace {

/// A font file, read through a window.
class FontFile final : public ByteSource {
public:
    explicit FontFile(platform::InputFile& file) : m_file(file) {}

private:
    std::span<const unsigned char> fetch(std::uint64_t position, std::size_t count) override {
        // The directory of a font stands at the start of its file, and has about twenty entries of 16 bytes.
        constexpr std::size_t directory = 512;
        const bool is_large = count > m_window.size();
        if (is_large) m_large.resize(count);
        const std::span<unsigned char> target = is_large ? std::span(m_large) : std::span(m_window);
        const std::size_t wanted = is_large || position > 0 ? target.size() : std::max(count, directory);
        m_start = position;
        m_there = target.first(m_file.read(position, target.data(), wanted));
        return m_there.first(std::min(count, m_there.size()));
    }

    platform::InputFile& m_file;
    std::array<unsigned char, 4096> m_window;
    std::vector<unsigned char> m_large;
};

/// Makes a text of each name.
class Texts final : public NameSink {
public:
    std::vector<tstringW> all;

    void take(const StoredName& name) override {
        tstringW text = text_of(name);
        if (!text.empty()) all.push_back(std::move(text));
    }

private:
    tstringW text_of(const StoredName& name) {
        std::wstring text;
        if (name.text == StoredName::WIDE) {
            text = units_of(name.bytes);
            join_surrogates(text);
            return text;
        }
        m_narrow.assign(name.bytes.begin(), name.bytes.end());
        if (name.text == StoredName::BIG5) return platform::wide_from_big5(m_narrow);
        MultiByteToWideChar(m_narrow, text);
        return text;
    }

    // Kept from name to name, so that each asks for the memory of its text alone.
    std::string m_narrow;
};

std::vector<tstringW> read_names(platform::InputFile& input, FontFileKind kind) {
    // A font has a full name and a PostScript name, each in one or two encodings.
    constexpr std::size_t usual_names = 4;
    FontFile file(input);
    Texts names;
    names.all.reserve(usual_names);
    kind == FontFileKind::SINGLE ? names_of_font(file, names) : names_of_collection(file, names);
    return std::move(names.all);
}

// A file that was written a moment ago may change once more within the same tick of the file system's clock, and would
// then look as before.
bool is_settled(const platform::FileStamp& stamp) {
    return std::chrono::file_clock::now() - stamp.time > std::chrono::seconds(2);
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
    const platform::NativePath file = platform::file_path(path);
    platform::FileStamp stamp;
    if (!platform::read_stamp(file, stamp)) return {};
    const Key key{path, kind};
    const auto known = known_files().find(key);
    if (known != known_files().end() && known->second.stamp == stamp) return known->second.names;
    platform::InputFile input(file);
    if (!input.is_open()) return {};
    // The stamp was taken ahead of what is read: a file that changes in between looks otherwise the next time.
    std::vector<tstringW> names = read_names(input, kind);
    if (is_settled(stamp)) known_files().insert_or_assign(key, Known{stamp, names});
    return names;
}

std::vector<tstringW> read_names_of_file(const tstringW& path, FontFileKind kind) {
    platform::InputFile input(platform::file_path(path));
    return input.is_open() ? read_names(input, kind) : std::vector<tstringW>();
}
