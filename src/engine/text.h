#pragma once

#include <cstdarg>
#include <cwchar>
#include <string>

/// A wide text. Equality is exact and case-sensitive; empty is a valid value. On systems whose wchar_t has 32 bits a
/// unit is a whole character; whatever has a fixed layout in bytes uses char16_t instead.
class tstringW : public std::wstring {
public:
    tstringW() = default;
    /// `text` ends with a zero and is not null.
    tstringW(const wchar_t* text) : std::wstring(text) {}
    tstringW(const std::wstring& text) : std::wstring(text) {}
    tstringW(std::wstring&& text) noexcept : std::wstring(std::move(text)) {}

    tstringW& operator=(const wchar_t* text) {
        assign(text);
        return *this;
    }
    tstringW& operator+=(const tstringW& tail) {
        append(tail);
        return *this;
    }

    /// Ends with a zero; valid while the text is unchanged.
    operator const wchar_t*() const { return c_str(); }

    /// Length in units.
    int size() const { return static_cast<int>(std::wstring::size()); }

    /// Replaces the content by the formatted text and gives the text itself. What can't be formatted leaves it empty.
    tstringW& Format(const wchar_t* format, ...) {
        std::wstring buffer(64, L'\0');
        for (constexpr std::size_t most = 1u << 20; buffer.size() <= most; buffer.resize(buffer.size() * 4)) {
            va_list arguments;
            va_start(arguments, format);
            const int length = std::vswprintf(buffer.data(), buffer.size(), format, arguments);
            va_end(arguments);
            // Too small a buffer gives a negative length on one system, the needed one on another.
            if (length < 0 || static_cast<std::size_t>(length) >= buffer.size()) continue;
            assign(buffer, 0, static_cast<std::size_t>(length));
            return *this;
        }
        clear();
        return *this;
    }

    /// Index of the first occurrence, −1 if absent.
    int Find(const tstringW& part) const { return to_index(find(part)); }
    /// Index of the first occurrence of the character at or behind `start`, −1 if absent. A negative start counts as 0.
    int find_first_of(wchar_t character, int start) const {
        return to_index(find(character, static_cast<std::size_t>(start < 0 ? 0 : start)));
    }
    /// Replaces every occurrence and gives their count. What was put in is not searched again; an empty `from` occurs
    /// nowhere.
    int Replace(const tstringW& from, const tstringW& to) {
        if (from.empty()) return 0;
        // Into a new text: in place, each occurrence would move all that stands behind it.
        std::wstring replaced;
        int count = 0;
        std::size_t done = 0;
        for (std::size_t at = find(from); at != npos; at = find(from, done)) {
            replaced.append(*this, done, at - done).append(to);
            done = at + from.length();
            ++count;
        }
        if (count > 0) assign(replaced.append(*this, done, npos));
        return count;
    }
    /// The part as a new text, cut to what there is. A negative count reaches to the end.
    tstringW substr(int start, int count) const {
        const std::size_t from = start < 0 ? 0 : static_cast<std::size_t>(start);
        if (from >= length()) return {};
        return std::wstring::substr(from, count < 0 ? npos : static_cast<std::size_t>(count));
    }
    /// Replaces the content by the decimal text of the number.
    tstringW& to_string(int number) {
        assign(std::to_wstring(number));
        return *this;
    }

private:
    static int to_index(std::size_t at) { return at == npos ? -1 : static_cast<int>(at); }
};
