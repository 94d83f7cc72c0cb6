#pragma once

// A project in memory: nodes with typed properties and children, exactly as items write them. Knows no file format and
// no item; files, inspection and scenarios walk the same nodes.

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

#include "engine/project_tree.h"
#include "engine/rect.h"
#include "engine/vectors.h"

namespace host {

/// A truth value as it is stored: a number of its own kind, so that a stored 2 comes back as 2.
struct StoredBool {
    int value = 0;
    friend bool operator==(StoredBool, StoredBool) = default;
};

/// What a property holds; the alternative is its kind.
using PropertyValue = std::variant<int, StoredBool, float, CRect, VEC3, VEC4, tstringW>;

struct Property {
    std::string key;
    PropertyValue value;
};

struct KeyHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view key) const { return std::hash<std::string_view>()(key); }
};

/// One node. Keys are unique: storing under a key again replaces the value and keeps its place. Children may share
/// names. Owns everything below it.
class ProjectNode final : public pack_node {
public:
    explicit ProjectNode(std::string name);
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

    const std::string& name() const { return m_name; }
    /// In the order of writing.
    const std::vector<Property>& properties() const { return m_properties; }
    const std::vector<std::unique_ptr<ProjectNode>>& children() const { return m_owned; }
    /// The new child, at the end.
    ProjectNode& add(std::string name);
    /// The first child of that name, or null.
    ProjectNode* child(std::string_view name) const;
    /// False if the key stands already; the value is then replaced.
    bool set(std::string key, PropertyValue value);
    /// Null if there is no such key. Reading in the order of writing never searches.
    const PropertyValue* find(std::string_view key) const;
    /// True if nothing was ever written into the node.
    bool is_empty() const { return m_properties.empty() && m_owned.empty(); }

private:
    /// Where the key stands, or the number of properties.
    std::size_t place_of(std::string_view key) const;

    std::string m_name;
    std::vector<Property> m_properties;
    // A bit for each key that is there, by its hash: where the bit is clear, no search is needed.
    std::uint64_t m_key_bits = 0;
    // Made for nodes of very many properties alone.
    std::unique_ptr<std::unordered_map<std::string, std::size_t, KeyHash, std::equal_to<>>> m_index;
    std::vector<std::unique_ptr<ProjectNode>> m_owned;
    // For get_children, and as long as m_owned once that was asked.
    mutable std::list<pack_node*> m_children;
    // Readers ask in the order of writing, so what stands behind the last one found is the likely answer.
    mutable std::size_t m_next = 0;
};

/// Name of the kind, as files write it: int, bool, float, rect, vec3, vec4 or text.
const char* kind_name(const PropertyValue& value);

}  // namespace host
