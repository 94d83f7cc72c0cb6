#pragma once

// A project in memory: nodes with typed properties and children, exactly as items write them. Knows no file format and
// no item; files, inspection and scenarios walk the same nodes.

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <list>
#include <memory>
#include <span>
#include <string_view>
#include <unordered_map>
#include <variant>

#include "engine/project_tree.h"
#include "engine/rect.h"
#include "engine/vectors.h"
#include "host/core/project_memory.h"

namespace host {

/// A truth value as it is stored: a number of its own kind, so that a stored 2 comes back as 2.
struct StoredBool {
    int value = 0;
    friend bool operator==(StoredBool, StoredBool) = default;
};

/// What a property holds; the alternative is its kind.
using PropertyValue = std::variant<int, StoredBool, float, CRect, VEC3, VEC4, tstringW>;

/// Values of other kinds than text are compared bit by bit: there are numbers that differ from themselves.
struct ValueBits {
    std::uint64_t low = 0;
    std::uint64_t high = 0;
    friend bool operator==(const ValueBits&, const ValueBits&) = default;
};
template <class Value>
ValueBits bits_of(const Value& value) {
    static_assert(sizeof value <= sizeof(ValueBits) && std::is_trivially_copyable_v<Value>);
    constexpr std::size_t half = std::min(sizeof value, sizeof(std::uint64_t));
    ValueBits bits;
    std::memcpy(&bits.low, &value, half);
    std::memcpy(&bits.high, reinterpret_cast<const char*>(&value) + half, sizeof value - half);
    return bits;
}
/// Of a text they are all 0.
inline ValueBits bits_of_value(const PropertyValue& value) {
    return std::visit(
        [](const auto& held) {
            if constexpr (std::is_same_v<decltype(held), const tstringW&>) {
                return ValueBits();
            } else {
                return bits_of(held);
            }
        },
        value);
}

/// The key belongs to the tree that holds the property.
struct Property {
    std::string_view key;
    PropertyValue value;
};

/// One node. Keys are unique: storing under a key again replaces the value and keeps its place. Children may share
/// names. Owns everything below it.
class ProjectNode final : public pack_node {
public:
    /// The top of a tree. The name is not copied. Trees that are made and go together lie in one memory, if one is
    /// given.
    explicit ProjectNode(const char* name, std::shared_ptr<ProjectMemory> memory = {});
    ProjectNode(const ProjectNode&) = delete;
    ProjectNode& operator=(const ProjectNode&) = delete;
    ProjectNode(ProjectNode&& other) noexcept;
    ProjectNode& operator=(ProjectNode&& other) noexcept;
    ~ProjectNode();

    pack_node* add_child(const char* name) override;
    pack_node* find_child(const char* name) override;
    const std::list<pack_node*>* get_children() const override;
    /// A null value or a kind that the tree does not know stores nothing.
    void add_property(const char* key, pak_node_type type, void* value) override;
    bool get_property(const char* key, pak_node_type type, void* value) override;
    void add_string_property(const char* key, const tstringW& text) override;
    bool get_string_property(const char* key, tstringW& text) override;

    std::string_view name() const { return m_name; }
    /// In the order of writing.
    std::span<const Property> properties() const {
        return m_content ? std::span<const Property>(m_content->properties, m_content->count)
                         : std::span<const Property>();
    }

    /// The children in the order of writing, as pointers to them.
    class Children {
    public:
        class Iterator {
        public:
            explicit Iterator(ProjectNode* at) : m_at(at) {}
            ProjectNode* operator*() const { return m_at; }
            Iterator& operator++() {
                m_at = m_at->m_sibling;
                return *this;
            }
            friend bool operator==(Iterator, Iterator) = default;

        private:
            ProjectNode* m_at;
        };
        explicit Children(ProjectNode* first) : m_first(first) {}
        Iterator begin() const { return Iterator(m_first); }
        Iterator end() const { return Iterator(nullptr); }

    private:
        ProjectNode* m_first;
    };
    Children children() const { return Children(m_content ? m_content->first_child : nullptr); }

    /// The child behind this one, or null.
    const ProjectNode* sibling() const { return m_sibling; }

    /// The new child, at the end.
    ProjectNode& add(std::string_view name);
    /// The first child of that name, or null.
    ProjectNode* child(std::string_view name) const;
    /// False if the key stands already; the value is then replaced.
    bool set(std::string_view key, PropertyValue value);
    /// The same for a value of a known kind.
    template <class Value>
    bool put(std::string_view key, Value value) {
        bool is_new = false;
        Property& property = stored(key, is_new);
        if constexpr (std::is_same_v<Value, tstringW>) hold_texts();
        property.value.emplace<Value>(std::move(value));
        return is_new;
    }
    /// Null if there is no such key. Reading in the order of writing never searches.
    const PropertyValue* find(std::string_view key) const;
    /// True if nothing was written into the node, since it was begun again.
    bool is_empty() const { return !m_content || (m_content->count == 0 && !m_content->first_child); }
    /// Forgets what was written, for a tree that is written once more, mostly with the same keys and names in the same
    /// order: those keep their places. Of a top node alone.
    void begin_again();

private:
    using Index = std::unordered_map<std::string_view, std::size_t>;
    /// What was written into a node. Many a node is there for its name alone, and has none.
    struct Content {
        Property* properties = nullptr;
        std::uint32_t count = 0;
        std::uint32_t capacity = 0;
        // So many hold a value. Those behind the count have one of the time before, which is to be ended all the same.
        std::uint32_t made = 0;
        // So many keys there were the time before, each once, and all so far are the same in the same order.
        std::uint32_t former = 0;
        bool repeats = false;
        // A bit for each key that is there, by its hash: where the bit is clear, no search is needed.
        std::uint64_t key_bits = 0;
        // Readers ask in the order of writing, so what stands behind the last one found is the likely answer.
        std::uint32_t next = 0;
        std::uint32_t child_count = 0;
        ProjectNode* first_child = nullptr;
        ProjectNode* last_child = nullptr;
        // While no name stands twice, what stands behind the child found last is the likely answer.
        ProjectNode* next_child = nullptr;
        // Of the time before, while all names are the same.
        ProjectNode* former_child = nullptr;
        // A bit for each name of a child, as for the keys.
        std::uint64_t name_bits = 0;
        // Made for nodes of very many properties alone.
        std::unique_ptr<Index> index{};
        // Made by get_children, and brought up to date there.
        std::unique_ptr<std::list<pack_node*>> children{};
        bool names_repeat = false;
        bool has_texts = false;
        bool ends_with_memory = false;
    };
    struct Below {};
    ProjectNode(Below, std::string_view name, ProjectMemory& memory)
        : m_memory(&memory), m_name(name), m_is_below(true) {}
    void take_over(ProjectNode& other) noexcept;
    static void begin_again(Content& content);
    /// Ends what the content holds outside the memory.
    static void end(Content& content);
    /// Sees to it that what a child has outside the memory ends with the memory.
    void end_with_memory(Content& content) const;
    /// Ahead of the first text.
    void hold_texts();
    Content& content() { return m_content ? *m_content : make_content(); }
    Content& make_content();
    /// The property of that key, which is made without a value if it is not there.
    Property& stored(std::string_view key, bool& is_new);
    /// The same of one that is not the next of those there were the time before.
    Property& stored_anew(Content& content, std::string_view key, bool& is_new);
    Property& append(Content& content, std::string_view key);
    ProjectNode& append_child(Content& content, std::string_view name);
    /// Where the key stands, or the number of properties.
    /// `bit` is that of the key.
    static std::size_t place_of(const Content& content, std::string_view key, std::uint64_t bit);
    ProjectMemory& memory();

    /// Null in children, which the top node keeps alive.
    std::shared_ptr<ProjectMemory> m_owned_memory;
    ProjectMemory* m_memory = nullptr;
    std::string_view m_name;
    Content* m_content = nullptr;
    ProjectNode* m_sibling = nullptr;
    bool m_is_below = false;
};

/// Name of the kind, as files write it: int, bool, float, rect, vec3, vec4 or text.
const char* kind_name(const PropertyValue& value);

}  // namespace host
