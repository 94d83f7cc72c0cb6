#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Font files made by hand: nothing but a directory and a table of names.

struct NameRow {
    int platform;
    int language;
    int name_id;
    std::string bytes;
};

inline std::string big_endian(std::uint64_t number, int size) {
    std::string bytes;
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift & 0xFF);
    return bytes;
}

inline std::string utf16_be(const std::u16string& text) {
    std::string bytes;
    for (const char16_t unit : text) bytes += big_endian(unit, 2);
    return bytes;
}

/// The name table; `count` as the header promises it.
inline std::string name_table(const std::vector<NameRow>& rows, std::size_t count) {
    std::string records, texts;
    for (const NameRow& row : rows) {
        for (const std::size_t number : {std::size_t(row.platform), std::size_t(0), std::size_t(row.language),
                                         std::size_t(row.name_id), row.bytes.size(), texts.size()}) {
            records += big_endian(number, 2);
        }
        texts += row.bytes;
    }
    return big_endian(0, 2) + big_endian(count, 2) + big_endian(6 + 12 * rows.size(), 2) + records + texts;
}

/// A font that lies at `start` of its file, with two tables, of which the second is that of the names.
inline std::string font_bytes(const std::vector<NameRow>& rows, std::size_t start = 0, const std::string& tag = "name",
                              std::uint32_t version = 0x00010000) {
    const std::string table = name_table(rows, rows.size());
    const std::string nowhere = big_endian(0, 4) + big_endian(0xFFFFFF00, 4) + big_endian(9, 4);
    return big_endian(version, 4) + big_endian(2, 2) + std::string(6, 's') + "glyf" + nowhere + tag + big_endian(0, 4) +
           big_endian(start + 12 + 32, 4) + big_endian(table.size(), 4) + table;
}

/// The head of a collection, for fonts that follow right behind it.
inline std::string collection_head(int version, std::uint32_t count, const std::vector<std::uint32_t>& offsets) {
    std::string bytes =
        "ttcf" + big_endian(static_cast<std::uint64_t>(version), 2) + big_endian(0, 2) + big_endian(count, 4);
    for (const std::uint32_t offset : offsets) bytes += big_endian(offset, 4);
    return bytes;
}
