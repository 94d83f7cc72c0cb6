#include "host/core/project_read_back.h"

#include <array>
#include <bit>
#include <cstdint>
#include <span>

#include "host/core/plain_text.h"

namespace host {
namespace {

template <class Value>
bool same_bits(const Value& a, const Value& b) {
    using Bits = std::array<std::uint32_t, sizeof(Value) / sizeof(std::uint32_t)>;
    return std::bit_cast<Bits>(a) == std::bit_cast<Bits>(b);
}

/// Compares it with one that is there. A child that is not there is a null node, in which nothing is right.
class Comparing {
public:
    static constexpr bool values_repeat = true;

    explicit Comparing(const ProjectNode* expected) : m_is_there(expected != nullptr) {
        if (!expected) return;
        m_properties = expected->properties();
        m_child = *expected->children().begin();
    }

    /// The value that must come next, if it has that key.
    template <class Value>
    const Value* next(std::string_view key) {
        const Property* const expected = next_property(key);
        return expected ? std::get_if<Value>(&expected->value) : nullptr;
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
    /// A line that gives the next property or the next child, which has nothing inside.
    bool repeats(const KnownLine& line) {
        if (line.kind == KnownLine::EMPTY_NODE) return child(line.key).is_complete();
        const Property* const expected = next_property(line.key);
        return expected && expected->value.index() == line.kind && bits_of_value(expected->value) == line.value;
    }
    Comparing child(std::string_view name) {
        const ProjectNode* const expected = m_child;
        if (!expected || !is_same(expected->name(), name)) return Comparing(nullptr);
        m_child = expected->sibling();
        return Comparing(expected);
    }
    bool is_complete() const { return m_is_there && m_properties.empty() && !m_child; }

private:
    const Property* next_property(std::string_view key) {
        if (m_properties.empty()) return nullptr;
        const Property& next = m_properties.front();
        m_properties = m_properties.subspan(1);
        return is_same(next.key, key) ? &next : nullptr;
    }
    static bool is_equal(const tstringW& a, const tstringW& b) { return a == b; }
    template <class Value>
    static bool is_equal(const Value& a, const Value& b) {
        return bits_of(a) == bits_of(b);
    }

    bool m_is_there;
    // Those to come.
    std::span<const Property> m_properties;
    const ProjectNode* m_child = nullptr;
};

}  // namespace

bool ProjectReadBack::gives(std::string_view text, const ProjectNode& modules) {
    Plain plain(text, m_lines);
    return plain.take_next("<modules>") && plain.children(Comparing(&modules), modules_depth, "</modules>") &&
           (plain.skip_blanks(), plain.is_at_end());
}

bool ProjectReadBack::gives(std::string_view text, const ProjectItem& item) {
    Plain plain(text, m_lines);
    ProjectItem head;
    return plain.take_next("<item") && plain.item_head(head, [&] { return plain.is_name(item.name); }) &&
           head.type == item.type && head.id == item.id && head.parent == item.parent && head.visible == item.visible &&
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
