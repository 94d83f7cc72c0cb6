#include "host/core/project_tree.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace host {
namespace {

template <class T>
T stored_at(const void* address) {
    T value;
    std::memcpy(&value, address, sizeof value);
    return value;
}

template <class T>
PropertyValue read_as(const void* address) {
    return stored_at<T>(address);
}

// How the value under an address is taken into the tree and given back, by its kind.
struct KindRow {
    pak_node_type type;
    PropertyValue (*take)(const void*);
    std::size_t alternative;
};
constexpr KindRow kind_rows[] = {
    {PAK_INT, &read_as<int>, 0},    {PAK_BOOL, &read_as<StoredBool>, 1}, {PAK_FLOAT, &read_as<float>, 2},
    {PAK_RECT, &read_as<CRect>, 3}, {PAK_VEC3, &read_as<VEC3>, 4},       {PAK_VEC4, &read_as<VEC4>, 5},
};

const KindRow* find_kind(pak_node_type type) {
    for (const KindRow& row : kind_rows)
        if (row.type == type) return &row;
    return nullptr;
}

// Beyond so many properties a search through them costs more than an index.
constexpr std::size_t most_searched = 64;

std::uint64_t key_bit(std::string_view key) {
    if (key.empty()) return 1;
    const auto byte = [key](std::size_t at) { return static_cast<unsigned char>(key[at]); };
    const unsigned mixed = byte(key.size() - 1) * 5u + byte(key.size() / 2) * 3u + static_cast<unsigned>(key.size());
    return std::uint64_t{1} << (mixed & 63);
}

}  // namespace

const char* kind_name(const PropertyValue& value) {
    constexpr const char* names[] = {"int", "bool", "float", "rect", "vec3", "vec4", "text"};
    static_assert(std::size(names) == std::variant_size_v<PropertyValue>);
    return names[value.index()];
}

ProjectNode::ProjectNode(std::string name) : m_name(std::move(name)) {}
ProjectNode::ProjectNode(ProjectNode&&) noexcept = default;
ProjectNode& ProjectNode::operator=(ProjectNode&&) noexcept = default;
ProjectNode::~ProjectNode() = default;

pack_node* ProjectNode::add_child(const char* name) { return &add(name ? name : ""); }

pack_node* ProjectNode::find_child(const char* name) { return name ? child(name) : nullptr; }

void ProjectNode::add_property(const char* key, pak_node_type type, void* value) {
    const KindRow* row = find_kind(type);
    if (key && row && value) set(key, row->take(value));
}

bool ProjectNode::get_property(const char* key, pak_node_type type, void* value) {
    const KindRow* row = find_kind(type);
    const PropertyValue* found = key && row && value ? find(key) : nullptr;
    if (!found || found->index() != row->alternative) return false;
    std::visit(
        [value](const auto& stored) {
            if constexpr (std::is_trivially_copyable_v<std::decay_t<decltype(stored)>>)
                std::memcpy(value, &stored, sizeof stored);
        },
        *found);
    return true;
}

void ProjectNode::add_string_property(const char* key, const tstringW& text) {
    if (key) set(key, text);
}

bool ProjectNode::get_string_property(const char* key, tstringW& text) {
    const PropertyValue* found = key ? find(key) : nullptr;
    const tstringW* stored = found ? std::get_if<tstringW>(found) : nullptr;
    if (stored) text = *stored;
    return stored != nullptr;
}

ProjectNode& ProjectNode::add(std::string name) {
    m_owned.push_back(std::make_unique<ProjectNode>(std::move(name)));
    return *m_owned.back();
}

const std::list<pack_node*>* ProjectNode::get_children() const {
    for (std::size_t at = m_children.size(); at < m_owned.size(); ++at) m_children.push_back(m_owned[at].get());
    return &m_children;
}

ProjectNode* ProjectNode::child(std::string_view name) const {
    for (const auto& node : m_owned)
        if (node->m_name == name) return node.get();
    return nullptr;
}

bool ProjectNode::set(std::string key, PropertyValue value) {
    const std::size_t known = place_of(key);
    if (known < m_properties.size()) {
        m_properties[known].value = std::move(value);
        return false;
    }
    m_key_bits |= key_bit(key);
    if (m_index) {
        m_index->emplace(key, known);
    } else if (known == most_searched) {
        m_index = std::make_unique<decltype(m_index)::element_type>();
        for (std::size_t at = 0; at < known; ++at) m_index->emplace(m_properties[at].key, at);
        m_index->emplace(key, known);
    }
    m_properties.push_back({std::move(key), std::move(value)});
    return true;
}

std::size_t ProjectNode::place_of(std::string_view key) const {
    const std::size_t none = m_properties.size();
    if ((m_key_bits & key_bit(key)) == 0) return none;
    if (m_index) {
        const auto known = m_index->find(key);
        return known == m_index->end() ? none : known->second;
    }
    const auto known = std::find_if(m_properties.begin(), m_properties.end(),
                                    [key](const Property& property) { return property.key == key; });
    return static_cast<std::size_t>(known - m_properties.begin());
}

const PropertyValue* ProjectNode::find(std::string_view key) const {
    const bool guessed = m_next < m_properties.size() && m_properties[m_next].key == key;
    const std::size_t place = guessed ? m_next : place_of(key);
    if (place == m_properties.size()) return nullptr;
    m_next = place + 1;
    return &m_properties[place].value;
}

}  // namespace host
