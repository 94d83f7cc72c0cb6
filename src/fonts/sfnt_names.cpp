#include "fonts/sfnt_names.h"

#include <algorithm>
#include <cstring>
#include <span>
#include <vector>

namespace {

// Where the structures hold what is read, in bytes from the start of each. All numbers are big-endian.
namespace offset_table {
constexpr std::size_t size = 12, version = 0, table_count = 4;
}
namespace table_record {
constexpr std::size_t size = 16, tag = 0, offset = 8;
}
namespace name_header {
constexpr std::size_t size = 6, record_count = 2, storage = 4;
}
namespace name_record {
constexpr std::size_t size = 12, platform = 0, language = 4, name_id = 6, length = 8, offset = 10;
}
namespace collection_header {
constexpr std::size_t size = 12, major_version = 4, font_count = 8;
}

constexpr int macintosh = 1;
constexpr int windows = 3;
constexpr int macintosh_traditional_chinese = 19;
constexpr int full_name = 4;
constexpr int postscript_name = 6;

constexpr std::uint32_t version_truetype = 0x00010000;
constexpr std::uint32_t version_opentype = 0x4F54544F;

// Windows records are taken in these two languages, whatever the region.
constexpr int english_langids[] = {0x0C09, 0x2809, 0x1009, 0x2409, 0x4009, 0x1809, 0x2009, 0x4409,
                                   0x1409, 0x3409, 0x4809, 0x1C09, 0x2C09, 0x0809, 0x0409, 0x3009};
constexpr int chinese_langids[] = {0x0C04, 0x1404, 0x0804, 0x1004, 0x0404};

/// The bytes of one structure, where they were read: valid until the next are asked for.
template <std::size_t Size>
struct Structure {
    static constexpr std::size_t size = Size;
    const unsigned char* bytes = nullptr;

    int u16(std::size_t at) const { return bytes[at] << 8 | bytes[at + 1]; }
    std::uint32_t u32(std::size_t at) const {
        return static_cast<std::uint32_t>(u16(at)) << 16 | static_cast<std::uint32_t>(u16(at + 2));
    }
};

/// The file with its limit. Once a read has come short, all further ones do.
class Reading {
public:
    explicit Reading(ByteSource& file) : m_file(file) {}

    /// `bytes` are valid until the next ones are asked for.
    bool get(std::uint64_t position, std::size_t count, std::span<const unsigned char>& bytes) {
        m_good = m_good && count <= m_left;
        if (m_good) bytes = m_file.look(position, count);
        m_good = m_good && bytes.size() == count;
        if (m_good) m_left -= count;
        return m_good;
    }
    template <std::size_t Size>
    bool get(std::uint64_t position, Structure<Size>& target) {
        std::span<const unsigned char> bytes;
        if (!get(position, Size, bytes)) return false;
        target.bytes = bytes.data();
        return true;
    }
    /// How many of so many structures in a row lie ahead of the first wanted one, as far as they are at hand. Those
    /// count as read; what follows them is to be read by get.
    template <class Record, class IsWanted>
    std::size_t pass_over(std::uint64_t position, std::size_t most, IsWanted is_wanted) {
        if (!m_good) return 0;
        const std::span<const unsigned char> bytes = m_file.at_hand(position);
        const std::size_t fits = std::min(bytes.size() / Record::size, static_cast<std::size_t>(m_left / Record::size));
        std::size_t passed = 0;
        while (passed < std::min(most, fits) && !is_wanted(Record{bytes.data() + passed * Record::size})) ++passed;
        m_left -= passed * Record::size;
        return passed;
    }
    /// That a text of this length still counts.
    bool takes_text(std::size_t length) {
        const bool fits = length <= m_text_left;
        if (fits) m_text_left -= length;
        return fits;
    }

private:
    ByteSource& m_file;
    std::uint64_t m_left = most_bytes;
    std::size_t m_text_left = most_text;
    bool m_good = true;
};

using NameRecord = Structure<name_record::size>;

template <std::size_t Count>
bool is_one_of(const int (&list)[Count], int value) {
    return std::find(std::begin(list), std::end(list), value) != std::end(list);
}

bool is_wanted(const NameRecord& record) {
    const int name = record.u16(name_record::name_id);
    return name == full_name || name == postscript_name;
}

// A language of 0 has narrow text on every platform, also on those whose text is wide: such a name comes out empty or
// strange and is found by no one.
bool is_narrow(const NameRecord& record) {
    return record.u16(name_record::language) == 0 || record.u16(name_record::platform) == macintosh;
}

bool is_wide(const NameRecord& record) {
    const int language = record.u16(name_record::language);
    return record.u16(name_record::platform) == windows &&
           (is_one_of(english_langids, language) || is_one_of(chinese_langids, language));
}

StoredName narrow_name(bool is_big5, std::span<const unsigned char> bytes) {
    const void* const zero = bytes.empty() ? nullptr : std::memchr(bytes.data(), 0, bytes.size());
    const auto* const end = zero ? static_cast<const unsigned char*>(zero) : bytes.data() + bytes.size();
    return {is_big5 ? StoredName::BIG5 : StoredName::NARROW, {bytes.data(), end}};
}

StoredName wide_name(std::span<const unsigned char> bytes) {
    std::size_t end = 0;
    while (end < bytes.size() && (bytes[end] != 0 || (end + 1 < bytes.size() && bytes[end + 1] != 0))) end += 2;
    return {StoredName::WIDE, bytes.first(std::min(end, bytes.size()))};
}

bool read_name(Reading& file, std::uint64_t storage, const NameRecord& record, NameSink& sink) {
    const bool narrow = is_narrow(record);
    if (!narrow && !is_wide(record)) return true;
    const bool is_big5 = record.u16(name_record::platform) == macintosh &&
                         record.u16(name_record::language) == macintosh_traditional_chinese;
    const auto length = static_cast<std::size_t>(record.u16(name_record::length));
    const std::size_t count = std::min(length, narrow ? longest_text : 2 * longest_text);
    if (!file.takes_text(count)) return true;
    std::span<const unsigned char> bytes;
    if (!file.get(storage + static_cast<std::uint64_t>(record.u16(name_record::offset)), count, bytes)) return false;
    const StoredName name = narrow ? narrow_name(is_big5, bytes) : wide_name(bytes);
    if (!name.bytes.empty()) sink.take(name);
    return true;
}

/// Calls `read` with each wanted structure of so many in a row. False: the file has come to its end, or `read` says so.
template <class Record, class IsWanted, class Read>
bool walk(Reading& file, std::uint64_t position, int count, IsWanted is_wanted, Read read) {
    for (auto left = static_cast<std::size_t>(count); left > 0; --left, position += Record::size) {
        const std::size_t passed = file.pass_over<Record>(position, left, is_wanted);
        left -= passed;
        position += passed * Record::size;
        if (left == 0) return true;
        Record record;
        if (!file.get(position, record) || (is_wanted(record) && !read(record))) return false;
    }
    return true;
}

bool walk_names(Reading& file, std::uint64_t table, NameSink& sink) {
    Structure<name_header::size> header;
    if (!file.get(table, header)) return false;
    const std::uint64_t storage = table + static_cast<std::uint64_t>(header.u16(name_header::storage));
    const auto read = [&](const NameRecord& record) { return read_name(file, storage, record, sink); };
    return walk<NameRecord>(file, table + name_header::size, header.u16(name_header::record_count), is_wanted, read);
}

using TableRecord = Structure<table_record::size>;

// In capitals or in small letters.
bool is_name_table(const TableRecord& record) {
    constexpr std::uint32_t small_letters = 0x6E616D65, case_bits = 0x20202020;
    return (record.u32(table_record::tag) | case_bits) == small_letters;
}

// A font without a name table has no names. False: the file has come to its end.
bool read_font(Reading& file, std::uint64_t font, const Structure<offset_table::size>& header, NameSink& sink) {
    std::uint64_t names = 0;
    bool has_names = false;
    const auto find = [&](const TableRecord& record) {
        names = record.u32(table_record::offset);
        has_names = true;
        return false;
    };
    const int count = header.u16(offset_table::table_count);
    if (walk<TableRecord>(file, font + offset_table::size, count, is_name_table, find)) return true;
    return has_names && walk_names(file, names, sink);
}

// Grows with what was read, never with what was promised.
bool read_font_offsets(Reading& file, std::uint32_t count, std::vector<std::uint32_t>& offsets) {
    Structure<4> offset;
    for (std::uint32_t at = 0; at < count; ++at) {
        if (!file.get(collection_header::size + std::uint64_t{at} * 4, offset)) return false;
        if (offset.u32(0) != 0) offsets.push_back(offset.u32(0));
    }
    std::sort(offsets.begin(), offsets.end());
    offsets.erase(std::unique(offsets.begin(), offsets.end()), offsets.end());
    return true;
}

}  // namespace

std::wstring units_of(std::span<const unsigned char> bytes) {
    std::wstring units((bytes.size() + 1) / 2, L'\0');
    for (std::size_t at = 0; at < bytes.size() / 2; ++at)
        units[at] = static_cast<wchar_t>(bytes[2 * at] << 8 | bytes[2 * at + 1]);
    if (bytes.size() % 2 != 0) units.back() = static_cast<wchar_t>(bytes.back() << 8);
    return units;
}

void names_of_font(ByteSource& source, NameSink& sink) {
    Reading file(source);
    Structure<offset_table::size> header;
    if (!file.get(0, header)) return;
    const std::uint32_t version = header.u32(offset_table::version);
    if (version == version_truetype || version == version_opentype) read_font(file, 0, header, sink);
}

void names_of_collection(ByteSource& source, NameSink& sink) {
    Reading file(source);
    Structure<collection_header::size> header;
    if (!file.get(0, header)) return;
    const int version = header.u16(collection_header::major_version);
    const std::uint32_t count = header.u32(collection_header::font_count);
    // The count is signed in the file: with the upper bit set it is below 1.
    if ((version != 1 && version != 2) || count > INT32_MAX) return;
    std::vector<std::uint32_t> offsets;
    if (!read_font_offsets(file, count, offsets)) return;
    for (const std::uint32_t font : offsets) {
        Structure<offset_table::size> first;
        if (!file.get(font, first) || !read_font(file, font, first, sink)) break;
    }
}
