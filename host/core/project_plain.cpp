#include "host/core/project_plain.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstring>
#include <utility>

#include "host/core/id_set.h"
#include "host/core/plain_bytes.h"
#include "host/core/project_text.h"
#include "host/core/project_xml.h"
#include "host/core/text_conversion.h"

namespace host {
namespace {

// ---- Where what is read goes ----------------------------------------------------------------------------------------

template <class Value>
bool same_bits(const Value& a, const Value& b) {
    using Bits = std::array<std::uint32_t, sizeof(Value) / sizeof(std::uint32_t)>;
    return std::bit_cast<Bits>(a) == std::bit_cast<Bits>(b);
}

bool is_ascii(char c) { return static_cast<unsigned char>(c) < 0x80; }

bool is_text(std::string_view utf8, std::wstring_view text) {
    // What is ASCII alone is compared without a copy.
    const auto is_same_ascii = [](char narrow, wchar_t wide) {
        return is_ascii(narrow) && static_cast<wchar_t>(narrow) == wide;
    };
    return std::equal(utf8.begin(), utf8.end(), text.begin(), text.end(), is_same_ascii) || from_utf8(utf8) == text;
}

/// Makes the node.
struct Building {
    // Files are read once, and a look for a value that was there before costs more than it saves.
    static constexpr bool values_repeat = false;
    ProjectNode* node;
    template <class Value>
    bool property(std::string_view key, Value& value) {
        return node->put(key, std::move(value));
    }
    bool text(std::string_view key, std::string_view bytes) { return node->put(key, tstringW(from_utf8(bytes))); }
    Building child(std::string_view name) { return {&node->add(name)}; }
    bool is_complete() const { return true; }
};

/// Compares it with one that is there. A child that is not there is a null node, in which nothing is right.
struct Comparing {
    explicit Comparing(const ProjectNode* expected)
        : node(expected),
          next_child(expected ? expected->children().begin() : ProjectNode::Children(nullptr).begin()) {}
    static constexpr bool values_repeat = true;
    const ProjectNode* node;
    ProjectNode::Children::Iterator next_child;
    std::size_t next_property = 0;

    /// The value that must come next, if it has that key.
    template <class Value>
    const Value* next(std::string_view key) {
        if (!node || next_property == node->properties().size()) return nullptr;
        const Property& expected = node->properties()[next_property++];
        return is_same(expected.key, key) ? std::get_if<Value>(&expected.value) : nullptr;
    }
    template <class Value>
    bool property(std::string_view key, const Value& value) {
        const Value* const expected = next<Value>(key);
        return expected && is_equal(*expected, value);
    }
    bool text(std::string_view key, std::string_view bytes) {
        const tstringW* const expected = next<tstringW>(key);
        return expected && is_text(bytes, *expected);
    }
    Comparing child(std::string_view name) {
        const ProjectNode* expected = *next_child;
        if (!expected || !is_same(expected->name(), name)) return Comparing(nullptr);
        ++next_child;
        return Comparing(expected);
    }
    bool is_complete() const { return node && next_property == node->properties().size() && !*next_child; }

private:
    static bool is_equal(const tstringW& a, const tstringW& b) { return a == b; }
    template <class Value>
    static bool is_equal(const Value& a, const Value& b) {
        return bits_of(a) == bits_of(b);
    }
};

// ---- Reading --------------------------------------------------------------------------------------------------------

// What stands for itself inside quotation marks. Bytes of other than ASCII do: all of the text is UTF-8.
constexpr std::array<bool, 256> all_plain_bytes() {
    std::array<bool, 256> plain{};
    for (std::size_t c = 0x20; c < plain.size(); ++c) plain[c] = c != '&' && c != '<' && c != '"';
    return plain;
}
constexpr std::array<bool, 256> plain_bytes = all_plain_bytes();

constexpr std::pair<std::string_view, char> references[] = {
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

    // What stands inside an element, with the tag that ends it.
    template <class Place, std::size_t Size>
    bool children(Place place, int depth, const char (&end_tag)[Size]) {
        for (;;) {
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

    bool item_head(ProjectItem& item) {
        item.parent = {};
        return take(" type=\"") && type(item.type) && take(" id=\"") && guid(item.id) &&
               (!take(" parent=\"") || guid(item.parent)) && name(item.name) && take(" visible=\"") &&
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
        if (!expected) return false;
        if (!line.value_text.empty() && stands_at(line.value_text, m_at, m_end)) {
            m_at += line.value_text.size();
            return line.value == bits_of(*expected);
        }
        const char* const begin = m_at;
        Value value{};
        if (!quoted_value(value)) return false;
        line.value_text.assign(begin, m_at);
        line.value = bits_of(value);
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
constexpr int modules_depth = 2;
constexpr int item_depth = 3;
constexpr int anim_node_depth = 4;

bool read_items(Plain& plain, ProjectDocument& document) {
    // Most have more bytes than that.
    constexpr std::size_t usual_item = 1024;
    document.items.reserve(plain.rest().size() / usual_item);
    const auto memory = std::make_shared<ProjectMemory>();
    IdSet ids;
    for (;;) {
        plain.skip_blanks();
        const int line = plain.line();
        if (plain.take("</items>")) return true;
        if (!plain.take("<item")) return false;
        ProjectItem& item = document.items.emplace_back();
        item.data = ProjectNode("item", memory);
        item.line = line;
        if (!plain.item_head(item) || !plain.inside(Building{&item.data}, item_depth, "</item>")) return false;
        if (!item.parent.is_empty() && !ids.contains(item.parent)) return false;
        if (!ids.insert(item.id).second) return false;
    }
}

bool read_anim_nodes(Plain& plain, ProjectAnimation& animation) {
    if (plain.take("/>")) return true;
    if (!plain.take(">")) return false;
    const auto memory = std::make_shared<ProjectMemory>();
    for (;;) {
        plain.skip_blanks();
        const int line = plain.line();
        if (plain.take("</animation>")) return true;
        if (!plain.take("<anim_node")) return false;
        ProjectAnimNode& node = animation.nodes.emplace_back();
        node.data = ProjectNode("anim_node", memory);
        node.line = line;
        if (!plain.anim_node_head(node) || !plain.inside(Building{&node.data}, anim_node_depth, "</anim_node>"))
            return false;
    }
}

bool read_animations(Plain& plain, ProjectDocument& document) {
    for (;;) {
        plain.skip_blanks();
        const int line = plain.line();
        if (plain.take("</animations>")) return true;
        if (!plain.take("<animation")) return false;
        ProjectAnimation& animation = document.animations.emplace_back();
        animation.line = line;
        if (!plain.animation_head(animation) || !read_anim_nodes(plain, animation)) return false;
    }
}

}  // namespace

std::optional<ProjectDocument> parse_plain_project(std::string_view text) {
    std::optional<ProjectDocument> document(std::in_place);
    KnownLines lines;
    Plain plain(text, lines);
    static_assert(project_version == 1);
    const bool good = plain.take("<?xml version=\"1.0\" encoding=\"UTF-8\"?>") &&
                      plain.take_next("<project version=\"1\">") && plain.take_next("<modules>") &&
                      plain.children(Building{&document->modules}, modules_depth, "</modules>") &&
                      plain.take_next("<items>") && read_items(plain, *document) &&
                      (!plain.take_next("<animations>") || read_animations(plain, *document)) &&
                      plain.take_next("</project>") && (plain.skip_blanks(), plain.is_at_end());
    if (!good) document.reset();
    return document;
}

bool ProjectReadBack::gives(std::string_view text, const ProjectNode& modules) {
    Plain plain(text, m_lines);
    return plain.take_next("<modules>") && plain.children(Comparing(&modules), modules_depth, "</modules>") &&
           (plain.skip_blanks(), plain.is_at_end());
}

bool ProjectReadBack::gives(std::string_view text, const ProjectItem& item) {
    Plain plain(text, m_lines);
    ProjectItem& head = m_head;
    return plain.take_next("<item") && plain.item_head(head) && head.type == item.type && head.id == item.id &&
           head.parent == item.parent && head.name == item.name && head.visible == item.visible &&
           head.flag == item.flag && plain.inside(Comparing(&item.data), item_depth, "</item>") &&
           (plain.skip_blanks(), plain.is_at_end());
}

bool ProjectReadBack::gives(std::string_view text, const ProjectAnimation& animation) {
    ProjectAnimation head;
    Plain plain(text, m_lines);
    if (!plain.take_next("<animation") || !plain.animation_head(head)) return false;
    if (head.name != animation.name || !same_bits(head.info, animation.info)) return false;
    if (head.starts_by_itself != animation.starts_by_itself) return false;
    if (!(animation.nodes.empty() ? plain.take("/>") : plain.take(">"))) return false;
    for (const ProjectAnimNode& node : animation.nodes) {
        ProjectAnimNode node_head;
        if (!plain.take_next("<anim_node") || !plain.anim_node_head(node_head)) return false;
        if (node_head.type != node.type || !(node_head.item == node.item)) return false;
        if (!plain.inside(Comparing(&node.data), anim_node_depth, "</anim_node>")) return false;
    }
    return (animation.nodes.empty() || plain.take_next("</animation>")) && (plain.skip_blanks(), plain.is_at_end());
}

}  // namespace host
