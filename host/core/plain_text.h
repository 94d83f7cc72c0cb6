#pragma once

// Reads the text of a project in the very form in which it is written, piece by piece. What is read goes to a place,
// which makes the nodes or compares them with those that are there.

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include "host/core/known_lines.h"
#include "host/core/plain_bytes.h"
#include "host/core/project_document.h"
#include "host/core/project_text.h"
#include "host/core/project_xml.h"
#include "host/core/text_conversion.h"

namespace host {

inline bool is_ascii(char c) { return static_cast<unsigned char>(c) < 0x80; }

inline bool is_text(std::string_view utf8, std::wstring_view text) {
    // What is ASCII alone is compared without a copy.
    const auto is_same_ascii = [](char narrow, wchar_t wide) {
        return is_ascii(narrow) && static_cast<wchar_t>(narrow) == wide;
    };
    return std::equal(utf8.begin(), utf8.end(), text.begin(), text.end(), is_same_ascii) || from_utf8(utf8) == text;
}

// What stands for itself inside quotation marks. Bytes of other than ASCII do: all of the text is UTF-8.
constexpr std::array<bool, 256> all_plain_bytes() {
    std::array<bool, 256> plain{};
    for (std::size_t c = 0x20; c < plain.size(); ++c) plain[c] = c != '&' && c != '<' && c != '"';
    return plain;
}
inline constexpr std::array<bool, 256> plain_bytes = all_plain_bytes();

inline constexpr std::pair<std::string_view, char> references[] = {
    {"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&#13;", '\r'}, {"&#10;", '\n'}, {"&#9;", '\t'}};

/// Each function is false or null for what is not as it is written; the place is then anywhere.
class Plain {
public:
    Plain(std::string_view text, KnownLines& lines) : m_at(text.data()), m_end(m_at + text.size()), m_lines(lines) {}

    bool is_at_end() { return m_at == m_end; }
    int line() const { return m_line; }
    std::string_view rest() const { return {m_at, static_cast<std::size_t>(m_end - m_at)}; }

    template <std::size_t Size>
    bool take(const char (&literal)[Size]) {
        constexpr std::size_t length = Size - 1;
        if (static_cast<std::size_t>(m_end - m_at) < length || std::memcmp(m_at, literal, length) != 0) return false;
        m_at += length;
        return true;
    }
    // Line breaks stand between elements and in texts of several lines alone.
    void skip_blanks() {
        for (; m_at != m_end && (*m_at == ' ' || *m_at == '\n'); ++m_at) m_line += *m_at == '\n' ? 1 : 0;
    }
    template <std::size_t Size>
    bool take_next(const char (&literal)[Size]) {
        skip_blanks();
        return take(literal);
    }

    // Up to the quotation mark that ends it. The text lives until the next one is read.
    bool quoted(std::string_view& text) {
        const char* const begin = m_at;
        m_at = find_special(m_at, m_end);
        if (m_at != m_end && *m_at == '"') {
            text = {begin, static_cast<std::size_t>(m_at++ - begin)};
            return true;
        }
        m_at = begin;
        return with_references('"', text) && take("\"");
    }

    template <class Value>
    bool value(Value& value) {
        return take(" value=\"") && quoted_value(value);
    }
    bool value(tstringW& text) {
        std::string_view bytes;
        if (take(">")) {
            // Several lines.
            return with_references('<', bytes) && take("</text>") && widened(bytes, text);
        }
        if (take(" value=\"")) return quoted_value(text);
        return take(" value-escaped=\"") && quoted(bytes) && take("/>") && unescaped(bytes, text);
    }
    // Behind the quotation mark that begins it, up to the end of the tag.
    template <class Value>
    bool quoted_value(Value& value) {
        bool is_first = true;
        const auto one = [this, &is_first](auto& number) {
            if (!is_first && !take(" ")) return false;
            is_first = false;
            const char* const behind = read_number(m_at, m_end, number);
            m_at = behind ? behind : m_at;
            return behind != nullptr;
        };
        return std::apply([&](auto&... numbers) { return (one(numbers) && ...); }, numbers_of(value)) && take("\"/>");
    }
    bool quoted_value(tstringW& text) {
        std::string_view bytes;
        return quoted(bytes) && take("/>") && widened(bytes, text);
    }
    bool name(tstringW& name) {
        std::string_view bytes;
        if (take(" name=\"")) return quoted(bytes) && widened(bytes, name);
        return take(" name-escaped=\"") && quoted(bytes) && unescaped(bytes, name);
    }
    bool is_name(const tstringW& expected) {
        std::string_view bytes;
        if (take(" name=\"")) return quoted(bytes) && is_text(bytes, expected);
        tstringW read;
        return name(read) && read == expected;
    }
    // Behind the quotation mark that begins it, with the one that ends it.
    template <class Number>
    bool number(Number& number) {
        const auto read = std::from_chars(m_at, m_end, number);
        m_at = read.ptr;
        return read.ec == std::errc() && take("\"");
    }
    bool number(float& number) {
        const char* const behind = read_number(m_at, m_end, number);
        m_at = behind ? behind : m_at;
        return behind && take("\"");
    }
    bool truth(bool& truth) {
        int value = 0;
        const bool good = number(value) && (value == 0 || value == 1);
        truth = value != 0;
        return good;
    }
    bool guid(CGuid& id) {
        if (m_end - m_at < guid_text::length) return false;
        const auto read = parse_guid({m_at, static_cast<std::size_t>(guid_text::length)});
        m_at += guid_text::length;
        if (!read || read->is_empty()) return false;
        id = *read;
        return take("\"");
    }

    // As a rule the same as the one before.
    bool parent(CGuid& id) {
        KnownId& known = m_lines.parent();
        if (!known.id.is_empty() && stands_at({known.text.data(), known.text.size()}, m_at, m_end)) {
            m_at += known.text.size();
            id = known.id;
            return true;
        }
        const char* const begin = m_at;
        if (!guid(id)) return false;
        std::copy(begin, m_at, known.text.begin());
        known.id = id;
        return true;
    }

    // What stands inside an element, with the tag that ends it.
    template <class Place, std::size_t Size>
    bool children(Place place, int depth, const char (&end_tag)[Size]) {
        for (;;) {
            if constexpr (Place::values_repeat) {
                if (const KnownLine* const line = m_lines.find_whole(m_at, m_end)) {
                    m_at += line->whole_size;
                    m_line += line->line_breaks;
                    const bool is_too_deep = line->kind == KnownLine::EMPTY_NODE && depth == xml::deepest_nesting;
                    if (is_too_deep || !place.repeats(*line)) return false;
                    continue;
                }
            }
            if (KnownLine* const line = m_lines.find(m_at, m_end)) {
                if (!known(*line, place, depth)) return false;
                continue;
            }
            const char* const begin = m_at;
            skip_blanks();
            if (m_end - m_at < 2) return false;
            if (m_at[1] == '/') return place.is_complete() && take(end_tag);
            if (!child(begin, place, depth)) return false;
        }
    }
    // The end of an element's tag and what stands inside, if there is anything.
    template <class Place, std::size_t Size>
    bool inside(Place place, int depth, const char (&end_tag)[Size]) {
        if (depth > xml::deepest_nesting) return false;
        return take("/>") ? place.is_complete() : take(">") && children(place, depth, end_tag);
    }

    // `read_name` takes the name.
    template <class ReadName>
    bool item_head(ProjectItem& item, ReadName read_name) {
        item.parent = {};
        return take(" type=\"") && type(item.type) && take(" id=\"") && guid(item.id) &&
               (!take(" parent=\"") || parent(item.parent)) && read_name() && take(" visible=\"") &&
               truth(item.visible) && take(" flag=\"") && number(item.flag);
    }
    bool anim_node_head(ProjectAnimNode& node) {
        node.item = {};
        return take(" type=\"") && type(node.type) && (!take(" item=\"") || guid(node.item));
    }
    bool animation_head(ProjectAnimation& animation) {
        anim_info& info = animation.info;
        return name(animation.name) && take(" length=\"") && number(info.length) && take(" rate=\"") &&
               number(info.rate) && take(" mode_flag=\"") && number(info.mode_flag) && take(" mode_count=\"") &&
               number(info.mode_count) && take(" factor=\"") && number(info.factor) && take(" start=\"") &&
               truth(animation.starts_by_itself);
    }

private:
    template <class Number>
    bool type(Number& type) {
        std::uint32_t read = 0;
        const bool good = number(read) && read > 0;
        type = read;
        return good;
    }

    // From the blanks at `begin` on, which are skipped.
    template <class Place>
    bool child(const char* begin, Place& place, int depth) {
        switch (m_at[1]) {
            case 'n':
                return take("<node name=\"") && node(begin, place, depth);
            case 'i':
                return take("<int") && property<int>(begin, KnownLine::INT, place);
            case 'b':
                return take("<bool") && property<StoredBool>(begin, KnownLine::BOOL, place);
            case 'f':
                return take("<float") && property<float>(begin, KnownLine::FLOAT, place);
            case 'r':
                return take("<rect") && property<CRect>(begin, KnownLine::RECT, place);
            case 'v':
                return take("<vec3") ? property<VEC3>(begin, KnownLine::VEC3, place)
                                     : take("<vec4") && property<VEC4>(begin, KnownLine::VEC4, place);
            case 't':
                return take("<text") && property<tstringW>(begin, KnownLine::TEXT, place);
            default:
                return false;
        }
    }
    template <class Value, class Place>
    bool property(const char* begin, KnownLine::Kind kind, Place& place) {
        Value value{};
        std::string_view key;
        if (!take(" key=\"") || !quoted(key)) return false;
        // A key with references lies where the next text goes.
        if (key.data() == m_bytes.data()) {
            key = m_key.assign(key);
        } else if (constexpr std::string_view next = " value=\""; rest().starts_with(next)) {
            m_lines.learn({begin, m_at + next.size()}, kind, key);
        }
        return this->value(value) && place.property(key, value);
    }
    template <class Place>
    bool node(const char* begin, Place& place, int depth) {
        std::string_view name;
        if (!quoted(name)) return false;
        Place below = place.child(name);
        const bool has_references = name.data() == m_bytes.data();
        const bool is_empty = take("/>");
        if (!is_empty && !take(">")) return false;
        if (!has_references) m_lines.learn({begin, m_at}, is_empty ? KnownLine::EMPTY_NODE : KnownLine::NODE, name);
        return inside_node(below, depth + 1, is_empty);
    }
    template <class Place>
    bool inside_node(Place place, int depth, bool is_empty) {
        if (depth > xml::deepest_nesting) return false;
        return is_empty ? place.is_complete() : children(place, depth, "</node>");
    }

    // One whose beginning is known.
    template <class Place>
    bool known(KnownLine& line, Place& place, int depth) {
        m_at += line.text.size();
        m_line += line.line_breaks;
        switch (line.kind) {
            case KnownLine::INT:
                return known_property<int>(line, place);
            case KnownLine::BOOL:
                return known_property<StoredBool>(line, place);
            case KnownLine::FLOAT:
                return known_property<float>(line, place);
            case KnownLine::RECT:
                return known_property<CRect>(line, place);
            case KnownLine::VEC3:
                return known_property<VEC3>(line, place);
            case KnownLine::VEC4:
                return known_property<VEC4>(line, place);
            case KnownLine::TEXT:
                return known_property<tstringW>(line, place);
            case KnownLine::NODE:
            case KnownLine::EMPTY_NODE:
                return inside_node(place.child(line.key), depth + 1, line.kind == KnownLine::EMPTY_NODE);
        }
        return false;
    }
    template <class Value, class Place>
    bool known_property(KnownLine& line, Place& place) {
        if constexpr (std::is_same_v<Value, tstringW>) {
            std::string_view bytes;
            return quoted(bytes) && take("/>") && place.text(line.key, bytes);
        } else if constexpr (Place::values_repeat) {
            return repeated_value(line, place.template next<Value>(line.key));
        } else {
            Value value{};
            return quoted_value(value) && place.property(line.key, value);
        }
    }
    // One that must be equal to what is expected; null: nothing is.
    template <class Value>
    bool repeated_value(KnownLine& line, const Value* expected) {
        const char* const begin = m_at - line.text.size();
        Value value{};
        if (!expected || !quoted_value(value)) return false;
        line.keep({begin, m_at}, bits_of(value));
        return line.value == bits_of(*expected);
    }

    // Up to the character that ends it. Nothing else that is taken has other characters than those of ASCII, so that
    // this is the place to look at them.
    bool with_references(char end, std::string_view& text) {
        const char* const begin = m_at;
        m_bytes.clear();
        for (; m_at != m_end && *m_at != end; ++m_at) {
            char c = *m_at;
            if (c == '&') {
                const auto row =
                    std::find_if(std::begin(references), std::end(references),
                                 [this](const auto& reference) { return rest().starts_with(reference.first); });
                if (row == std::end(references)) return false;
                m_at += row->first.size() - 1;
                c = row->second;
            } else if (!plain_bytes[static_cast<unsigned char>(c)]) {
                // Readers of XML change line breaks and tabs inside of quotation marks.
                const bool stays = end == '<' && (c == '\n' || c == '\t' || c == '"');
                if (!stays) return false;
                m_line += c == '\n' ? 1 : 0;
            }
            m_bytes += c;
        }
        text = m_bytes;
        return first_bad_byte({begin, static_cast<std::size_t>(m_at - begin)}) == std::string_view::npos;
    }

    static bool widened(std::string_view bytes, tstringW& text) {
        if (std::all_of(bytes.begin(), bytes.end(), is_ascii)) {
            text.assign(bytes.begin(), bytes.end());
        } else {
            text = from_utf8(bytes);
        }
        return true;
    }
    static bool unescaped(std::string_view bytes, tstringW& text) {
        auto read = from_xml_text(bytes, true);
        if (read) text = std::move(*read);
        return read.has_value();
    }

    const char* m_at;
    const char* m_end;
    KnownLines& m_lines;
    int m_line = 1;
    std::string m_bytes;
    std::string m_key;
};

// As deep as the general reader counts.
inline constexpr int modules_depth = 2;
inline constexpr int item_depth = 3;
inline constexpr int anim_node_depth = 4;

}  // namespace host
