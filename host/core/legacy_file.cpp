#include "host/core/legacy_file.h"

#include <algorithm>

#include "host/core/legacy_value.h"
#include "host/core/project_disk.h"
#include "host/core/project_text.h"
#include "host/core/project_xml.h"
#include "host/core/text_conversion.h"

namespace host {
namespace {

using namespace xml;

constexpr int known_version = 1;
constexpr const char* code_list = "3, 4, 6, 8, 9, 11, 15 or 20; hex goes with any";
// The attributes of which a value stands in one.
constexpr const char* value_names[] = {"value", "value-escaped", "float", "hex"};

int digit_of(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

// The text of a value as what its code stands for; each false for text that is none.
struct Parser {
    std::string_view text;

    bool operator()(std::int32_t& number) const {
        const auto whole = parse_whole_number(text);
        // Old tools wrote colours and flags without a sign.
        if (!whole || *whole < INT32_MIN || *whole > UINT32_MAX) return false;
        number = static_cast<std::int32_t>(static_cast<std::uint32_t>(*whole));
        return true;
    }
    bool operator()(CPoint& pair) const {
        constexpr const char* blanks = " \t\r\n";
        const std::size_t first = text.find_first_not_of(blanks);
        const std::size_t between = text.find_first_of(blanks, std::min(first, text.size()));
        if (between == std::string_view::npos) return false;
        const auto x = parse_value(text.substr(0, between), 0);
        const auto y = parse_value(text.substr(between), 0);
        if (x && y) pair = {std::get<int>(*x), std::get<int>(*y)};
        return x && y;
    }
    bool operator()(float& number) const { return take(number); }
    bool operator()(VEC3& vector) const { return take(vector); }
    bool operator()(CGuid& id) const {
        const auto parsed = parse_guid(text);
        if (parsed) id = *parsed;
        return parsed.has_value();
    }
    bool operator()(tstringW&) const { return false; }

private:
    template <class T>
    bool take(T& value) const {
        const auto parsed = parse_value(text, value);
        if (parsed) value = std::get<T>(*parsed);
        return parsed.has_value();
    }
};

const char* expected_text(const LegacyContent& kind) {
    constexpr const char* texts[] = {"a whole number of 32 bits",
                                     "a number, inf, -inf or nan",
                                     "three numbers",
                                     "two whole numbers",
                                     "an identifier",
                                     "a text"};
    static_assert(std::size(texts) == std::variant_size_v<LegacyContent>);
    return texts[kind.index()];
}

// The one attribute that holds the value; empty for a node without.
pugi::xml_attribute value_of(const pugi::xml_node& element) {
    pugi::xml_attribute found;
    for (const char* name : value_names) {
        const pugi::xml_attribute attribute = element.attribute(name);
        if (!attribute) continue;
        if (found)
            fail(element, "value given twice", std::string(found.name()) + " and " + name,
                 "one of value, value-escaped, float and hex");
        found = attribute;
    }
    return found;
}

std::string read_coded(const pugi::xml_node& element, const pugi::xml_attribute& attribute, int code) {
    const LegacyContent* kind = legacy_content_kind(code);
    const std::string text = attribute.value();
    const bool is_escaped = std::string_view(attribute.name()) == "value-escaped";
    if (code == 0) return legacy_units(unescaped(element, text, is_escaped));
    if (!kind) fail(element, "value of a code that has none", "code " + std::to_string(code), code_list);
    if (std::holds_alternative<tstringW>(*kind)) return legacy_bytes(unescaped(element, text, is_escaped));
    if (is_escaped) fail(element, "escaped value of code " + std::to_string(code), quoted(text), "value or hex");
    LegacyContent content = *kind;
    if (!std::visit(Parser{text}, content))
        fail(element, "bad value of code " + std::to_string(code), quoted(text), expected_text(*kind));
    return legacy_bytes(content);
}

std::string read_data(const pugi::xml_node& element, const pugi::xml_attribute& attribute, int code) {
    const std::string_view name = attribute.name();
    if (name == "hex") {
        const auto bytes = parse_hex(attribute.value());
        if (!bytes) fail(element, "bad hex", quoted(attribute.value()), "pairs of hexadecimal digits");
        return *bytes;
    }
    if (name != "float") return read_coded(element, attribute, code);
    if (code != LEGACY_INT)
        fail(element, "float of code " + std::to_string(code), quoted(attribute.value()),
             "code 3; other floats stand in value");
    return legacy_bytes(read_float(element, "float"));
}

class TreeReader {
public:
    explicit TreeReader(std::string_view text) : m_lines(text) {}

    void read_root(const pugi::xml_node& element, LegacyNode& root) {
        root.line = m_lines.line_at(element.offset_debug());
        read_children(element, root, 1);
    }

private:
    void read_children(const pugi::xml_node& from, LegacyNode& to, int depth) {
        if (depth > deepest_nesting)
            fail(from, "nested too deeply", std::to_string(depth) + " levels",
                 std::to_string(deepest_nesting) + " at most");
        check_no_text(from);
        for (const pugi::xml_node& element : from.children())
            if (is_element(element)) read_child(element, to, depth);
    }

    void read_child(const pugi::xml_node& element, LegacyNode& parent, int depth) {
        const std::string_view kind = element.name();
        if (kind == "nothing") {
            check_attributes(element, {});
            if (element.first_child()) fail(element, "something inside <nothing>", "content", "none");
            parent.add_nothing();
            return;
        }
        if (kind != "node") fail(element, "unknown element", "<" + std::string(kind) + ">", "node or nothing");
        check_attributes(element, {"name", "name-escaped", "code", "value", "value-escaped", "float", "hex"});
        LegacyNode& node = parent.add(to_utf8(read_name(element)));
        node.line = m_lines.line_at(element.offset_debug());
        if (element.attribute("code")) node.code = static_cast<int>(read_number(element, "code", 0, INT32_MAX));
        if (const pugi::xml_attribute value = value_of(element)) {
            node.data = read_data(element, value, node.code);
        } else if (node.code != 0) {
            fail(element, "code without a value", "code " + std::to_string(node.code), "value or hex");
        }
        read_children(element, node, depth + 1);
    }

    LineCounter m_lines;
};

}  // namespace

std::optional<std::string> parse_hex(std::string_view text) {
    if (text.size() % 2 != 0) return {};
    std::string bytes;
    bytes.reserve(text.size() / 2);
    for (std::size_t at = 0; at < text.size(); at += 2) {
        const int high = digit_of(text[at]);
        const int low = digit_of(text[at + 1]);
        if (high < 0 || low < 0) return {};
        bytes.push_back(static_cast<char>(high * 16 + low));
    }
    return bytes;
}

std::string format_hex(std::string_view bytes) {
    constexpr const char* digits = "0123456789ABCDEF";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (char byte : bytes) {
        text.push_back(digits[static_cast<unsigned char>(byte) >> 4]);
        text.push_back(digits[static_cast<unsigned char>(byte) & 15]);
    }
    return text;
}

bool is_legacy_file(const std::string& path) {
    std::string bytes;
    std::string error;
    if (!read_whole_file(path, largest_file, bytes, error)) return false;
    // The first element says it; what may stand ahead of it begins with another sign.
    std::string_view text = bytes;
    for (std::size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1)) {
        const std::string_view rest = text.substr(at);
        if (!rest.starts_with("<?") && !rest.starts_with("<!")) return rest.starts_with("<legacy");
    }
    return false;
}

std::unique_ptr<LegacyProject> parse_legacy(std::string_view text, const std::string& path, std::string& error) {
    auto project = std::make_unique<LegacyProject>(from_utf8(path));
    const bool good = read_text_file(text, path, {"legacy", known_version}, error, [&](const pugi::xml_node& root) {
        TreeReader(without_mark(text)).read_root(root, project->root());
    });
    return good ? std::move(project) : nullptr;
}

std::unique_ptr<LegacyProject> read_legacy(const std::string& path, std::string& error) {
    std::string bytes;
    if (!read_whole_file(path, largest_file, bytes, error)) {
        error = path + ":1: " + error;
        return nullptr;
    }
    return parse_legacy(bytes, path, error);
}

}  // namespace host
