#include "host/core/legacy_value.h"

#include <algorithm>
#include <cstring>

#include "host/core/text_conversion.h"

namespace host {
namespace {

// The codes with a value of each. Codes whose values have the same layout stand for each other: moments are floats
// where the rest of their keys are whole numbers.
struct CodeRow {
    int code;
    LegacyContent kind;
    int layout;
};
const CodeRow code_rows[] = {
    {LEGACY_INT, std::int32_t{}, 1}, {LEGACY_FLOAT, 0.0f, 1},      {LEGACY_PATH, tstringW(), 2},
    {LEGACY_NAME, tstringW(), 2},    {LEGACY_TEXT, tstringW(), 2}, {LEGACY_VEC3, VEC3(), 3},
    {LEGACY_GUID, CGuid(), 4},       {LEGACY_PAIR, CPoint(), 5},
};

const CodeRow* find_code(int code) {
    const auto* row = std::find_if(std::begin(code_rows), std::end(code_rows),
                                   [code](const CodeRow& known) { return known.code == code; });
    return row == std::end(code_rows) ? nullptr : row;
}

constexpr bool is_high_half(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool is_low_half(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

void append_unit(std::string& bytes, char16_t unit) {
    char two[sizeof unit];
    std::memcpy(two, &unit, sizeof unit);
    bytes.append(two, sizeof unit);
}

std::string text_bytes(const std::wstring& text) {
    std::string bytes = legacy_units(text);
    append_unit(bytes, 0);
    return bytes;
}

// Up to the first zero, or all of them.
std::u16string units_of(std::string_view bytes) {
    std::u16string units(bytes.size() / 2, u'\0');
    std::memcpy(units.data(), bytes.data(), units.size() * 2);
    units.resize(std::min(units.find(u'\0'), units.size()));
    return units;
}

tstringW text_of(std::string_view bytes) {
    const std::u16string units = units_of(bytes);
    tstringW text;
    for (std::size_t at = 0; at < units.size(); ++at) {
        const bool is_pair = is_high_half(units[at]) && at + 1 < units.size() && is_low_half(units[at + 1]);
        if (!is_pair) {
            text.push_back(static_cast<wchar_t>(units[at]));
            continue;
        }
        const std::uint32_t high = units[at] - 0xD800u;
        text.push_back(static_cast<wchar_t>(0x10000u + (high << 10) + (units[++at] - 0xDC00u)));
    }
    return text;
}

void copy_text(std::string_view bytes, int code, void* out) {
    std::u16string units = units_of(bytes);
    const std::size_t most = legacy_buffer_units(code) - 1;
    if (units.size() > most) {
        // Not in the middle of a character.
        const bool splits_pair = is_high_half(units[most - 1]) && is_low_half(units[most]);
        units.resize(splits_pair ? most - 1 : most);
    }
    std::memcpy(out, units.c_str(), (units.size() + 1) * sizeof(char16_t));
}

struct ToBytes {
    std::string operator()(const tstringW& text) const { return text_bytes(text); }
    template <class T>
    std::string operator()(const T& value) const {
        std::string bytes(sizeof value, '\0');
        std::memcpy(bytes.data(), &value, sizeof value);
        return bytes;
    }
};

struct FromBytes {
    std::string_view bytes;
    bool operator()(tstringW& text) const {
        text = text_of(bytes);
        return text_bytes(text) == bytes;
    }
    template <class T>
    bool operator()(T& value) const {
        if (bytes.size() != sizeof value) return false;
        std::memcpy(&value, bytes.data(), sizeof value);
        return true;
    }
};

}  // namespace

const LegacyContent* legacy_content_kind(int code) {
    const CodeRow* row = find_code(code);
    return row ? &row->kind : nullptr;
}

std::string legacy_units(const std::wstring& text) {
    std::string bytes;
    for (wchar_t character : text) {
        const auto code = static_cast<std::uint32_t>(character);
        if (code >= 0x10000) {
            append_unit(bytes, static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10)));
            append_unit(bytes, static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF)));
        } else {
            append_unit(bytes, static_cast<char16_t>(code));
        }
    }
    return bytes;
}

std::string legacy_bytes(const LegacyContent& content) { return std::visit(ToBytes{}, content); }

std::optional<LegacyContent> legacy_content(int code, std::string_view bytes) {
    const CodeRow* row = find_code(code);
    if (!row) return {};
    LegacyContent content = row->kind;
    if (!std::visit(FromBytes{bytes}, content)) return {};
    return content;
}

bool copy_legacy_value(std::string_view bytes, int stored, int asked, void* out) {
    const CodeRow* wanted = find_code(asked);
    const CodeRow* kept = find_code(stored);
    if (!wanted || !out || (stored != 0 && (!kept || kept->layout != wanted->layout))) return false;
    if (legacy_buffer_units(asked) > 0) {
        copy_text(bytes, asked, out);
        return true;
    }
    const std::size_t size = legacy_bytes(wanted->kind).size();
    if (bytes.size() < size) return false;
    std::memcpy(out, bytes.data(), size);
    return true;
}

}  // namespace host
