#include "host/core/text_conversion.h"

#include <cstdint>
#include <iterator>

#include "engine/services.h"

namespace {

constexpr char32_t replacement = 0xFFFD;

bool is_ascii(char32_t c) { return c < 0x80; }
bool is_surrogate(char32_t c) { return c >= 0xD800 && c <= 0xDFFF; }

char byte(char32_t value) { return static_cast<char>(static_cast<unsigned char>(value)); }

void append_utf8(std::string& bytes, char32_t c) {
    if (c < 0x80) {
        bytes += byte(c);
        return;
    }
    const int tail = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    constexpr char32_t lead[] = {0, 0xC0, 0xE0, 0xF0};
    bytes += byte(lead[tail] | c >> (6 * tail));
    for (int left = tail - 1; left >= 0; --left) bytes += byte(0x80 | (c >> (6 * left) & 0x3F));
}

// The character at `at`, which moves behind it. Where wchar_t has 16 bits a pair of surrogates is one character.
char32_t next_character(std::wstring_view text, std::size_t& at) {
    const char32_t c = static_cast<char32_t>(text[at++]);
    if constexpr (sizeof(wchar_t) == 2) {
        const char32_t low = at < text.size() ? static_cast<char32_t>(text[at]) : 0;
        if (c >= 0xD800 && c <= 0xDBFF && low >= 0xDC00 && low <= 0xDFFF) {
            ++at;
            return 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
        }
    }
    return is_surrogate(c) || c > 0x10FFFF ? replacement : c;
}

void append_wide(std::wstring& text, char32_t c) {
    if (sizeof(wchar_t) == 2 && c > 0xFFFF) {
        text += static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10));
        text += static_cast<wchar_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
    } else {
        text += static_cast<wchar_t>(c);
    }
}

// The well-formed sequences by their first byte, with the bounds of the second; those of the rest are 80 to BF. The
// narrower bounds keep out overlong forms, surrogates and numbers beyond U+10FFFF.
struct SequenceForm {
    std::uint8_t first_from, first_to;
    std::uint8_t second_from, second_to;
    int tail;
};
constexpr SequenceForm forms[] = {
    {0xC2, 0xDF, 0x80, 0xBF, 1}, {0xE0, 0xE0, 0xA0, 0xBF, 2}, {0xE1, 0xEC, 0x80, 0xBF, 2}, {0xED, 0xED, 0x80, 0x9F, 2},
    {0xEE, 0xEF, 0x80, 0xBF, 2}, {0xF0, 0xF0, 0x90, 0xBF, 3}, {0xF1, 0xF3, 0x80, 0xBF, 3}, {0xF4, 0xF4, 0x80, 0x8F, 3},
};

const SequenceForm* form_of(std::uint8_t first) {
    for (const SequenceForm& form : forms) {
        if (first >= form.first_from && first <= form.first_to) return &form;
    }
    return nullptr;
}

// Reads one sequence at `at` and moves behind what belonged together, so that one broken sequence is one replacement.
char32_t next_sequence(std::string_view bytes, std::size_t& at) {
    const auto first = static_cast<std::uint8_t>(bytes[at++]);
    if (first < 0x80) return first;
    const SequenceForm* form = form_of(first);
    if (!form) return replacement;
    char32_t c = first & (0x3Fu >> form->tail);
    std::uint8_t from = form->second_from, to = form->second_to;
    for (int read = 0; read < form->tail; ++read) {
        const auto next = at < bytes.size() ? static_cast<std::uint8_t>(bytes[at]) : std::uint8_t{0};
        if (next < from || next > to) return replacement;
        c = c << 6 | (next & 0x3Fu);
        from = 0x80;
        to = 0xBF;
        ++at;
    }
    return c;
}

}  // namespace

std::string to_utf8(std::wstring_view text) {
    // Most texts are ASCII from beginning to end.
    std::string bytes(text.size(), '\0');
    char* const target = bytes.data();
    std::size_t at = 0;
    for (; at < text.size() && is_ascii(static_cast<char32_t>(text[at])); ++at)
        target[at] = static_cast<char>(text[at]);
    bytes.resize(at);
    while (at < text.size()) append_utf8(bytes, next_character(text, at));
    return bytes;
}

std::wstring from_utf8(std::string_view bytes) {
    std::wstring text(bytes.size(), L'\0');
    std::size_t at = 0;
    for (; at < bytes.size() && is_ascii(static_cast<unsigned char>(bytes[at])); ++at)
        text[at] = static_cast<wchar_t>(bytes[at]);
    text.resize(at);
    while (at < bytes.size()) append_wide(text, next_sequence(bytes, at));
    return text;
}

void WideCharToMultiByte(const std::wstring& wide, std::string& narrow) { narrow = to_utf8(wide); }
void MultiByteToWideChar(const std::string& narrow, std::wstring& wide) { wide = from_utf8(narrow); }
