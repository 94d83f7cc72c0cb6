#pragma once

// A project in memory: nodes with typed properties and children, exactly as items write them. Knows no file format and
// no item; files, inspection and scenarios walk the same nodes.

#include <deque>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>

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
    const std::list<pack_node*>* get_children() const override { return &m_children; }
    /// A null value or a kind that the tree does not know stores nothing.
    void add_property(const char* key, pak_node_type type, void* value) override;
    bool get_property(const char* key, pak_node_type type, void* value) override;
    void add_string_property(const char* key, const tstringW& text) override;
    bool get_string_property(const char* key, tstringW& text) override;

    const std::string& name() const { return m_name; }
    /// In the order of writing.
    const std::deque<Property>& properties() const { return m_properties; }
    const std::list<std::unique_ptr<ProjectNode>>& children() const { return m_owned; }
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
    std::string m_name;
    std::deque<Property> m_properties;
    // The views name the keys inside m_properties, whose elements never move.
    std::unordered_map<std::string_view, std::size_t> m_index;
    std::list<std::unique_ptr<ProjectNode>> m_owned;
    std::list<pack_node*> m_children;
    mutable std::size_t m_next = 0;
};

/// Name of the kind, as files write it: int, bool, float, rect, vec3, vec4 or text.
const char* kind_name(const PropertyValue& value);

}  // namespace host
