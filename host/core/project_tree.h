#pragma once

// A project in memory: nodes with typed properties and children, exactly as items write them. Knows no file format and
// no item; files, inspection and scenarios walk the same nodes.

#include <cstdint>
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
    std::span<const Property> properties() const { return {m_properties, m_count}; }

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
    Children children() const { return Children(m_first_child); }

    /// The new child, at the end.
    ProjectNode& add(std::string_view name);
    /// The first child of that name, or null.
    ProjectNode* child(std::string_view name) const;
    /// False if the key stands already; the value is then replaced.
    bool set(std::string_view key, PropertyValue value);
    /// Null if there is no such key. Reading in the order of writing never searches.
    const PropertyValue* find(std::string_view key) const;
    /// True if nothing was ever written into the node.
    bool is_empty() const { return m_count == 0 && !m_first_child; }
    /// Forgets what was written. A tree with a memory of its own takes the same memory again. Of a top node alone.
    void clear();

private:
    using Index = std::unordered_map<std::string_view, std::size_t>;
    struct Below {};
    ProjectNode(Below, std::string_view name, ProjectMemory& memory)
        : m_memory(&memory), m_name(name), m_is_below(true) {}
    void take_over(ProjectNode& other) noexcept;
    /// Ends the texts, which lie outside the memory.
    void end_texts();
    /// Sees to it that what a child has outside the memory ends with the memory.
    void end_with_memory() const;
    /// The property of that key, which is made without a value if it is not there.
    Property& stored(std::string_view key, bool& is_new);
    Property& append(std::string_view key);
    /// Where the key stands, or the number of properties.
    std::size_t place_of(std::string_view key) const;
    ProjectMemory& memory();

    /// Null in children, which the top node keeps alive.
    std::shared_ptr<ProjectMemory> m_owned_memory;
    ProjectMemory* m_memory = nullptr;
    std::string_view m_name;
    Property* m_properties = nullptr;
    std::uint32_t m_count = 0;
    std::uint32_t m_capacity = 0;
    // A bit for each key that is there, by its hash: where the bit is clear, no search is needed.
    std::uint64_t m_key_bits = 0;
    ProjectNode* m_first_child = nullptr;
    ProjectNode* m_last_child = nullptr;
    ProjectNode* m_sibling = nullptr;
    // A bit for each name of a child, as for the keys.
    std::uint64_t m_name_bits = 0;
    // While no name stands twice, what stands behind the child found last is the likely answer.
    mutable ProjectNode* m_next_child = nullptr;
    // Made for nodes of very many properties alone.
    std::unique_ptr<Index> m_index;
    // Made by get_children, and brought up to date there.
    mutable std::unique_ptr<std::list<pack_node*>> m_children;
    // Readers ask in the order of writing, so what stands behind the last one found is the likely answer.
    mutable std::uint32_t m_next = 0;
    bool m_has_texts = false;
    std::uint32_t m_child_count = 0;
    bool m_names_repeat = false;
    bool m_is_below = false;
    mutable bool m_ends_with_memory = false;
};

/// Name of the kind, as files write it: int, bool, float, rect, vec3, vec4 or text.
const char* kind_name(const PropertyValue& value);

}  // namespace host
