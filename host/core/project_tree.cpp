#include "host/core/project_tree.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "host/core/plain_bytes.h"

namespace host {
namespace {

template <class T>
void take_as(const void* address, PropertyValue& value) {
    std::memcpy(&value.emplace<T>(), address, sizeof(T));
}

template <class T>
void give_as(const PropertyValue& value, void* address) {
    std::memcpy(address, std::get_if<T>(&value), sizeof(T));
}

// How the value under an address is taken into the tree and given back, by its kind.
struct KindRow {
    pak_node_type type;
    std::size_t alternative;
    void (*take)(const void*, PropertyValue&);
    void (*give)(const PropertyValue&, void*);
};
template <std::size_t Alternative>
constexpr KindRow row_of(pak_node_type type) {
    using T = std::variant_alternative_t<Alternative, PropertyValue>;
    return {type, Alternative, &take_as<T>, &give_as<T>};
}
constexpr KindRow kind_rows[] = {row_of<0>(PAK_INT),  row_of<1>(PAK_BOOL), row_of<2>(PAK_FLOAT),
                                 row_of<3>(PAK_RECT), row_of<4>(PAK_VEC3), row_of<5>(PAK_VEC4)};

// The rows by their types, null between them.
constexpr auto rows_by_type = [] {
    std::array<const KindRow*, 32> rows{};
    for (const KindRow& row : kind_rows) rows.at(static_cast<std::size_t>(row.type)) = &row;
    return rows;
}();

const KindRow* find_kind(pak_node_type type) {
    const auto number = static_cast<std::size_t>(type);
    return number < rows_by_type.size() ? rows_by_type[number] : nullptr;
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

ProjectNode::ProjectNode(const char* name, std::shared_ptr<ProjectMemory> memory)
    : m_owned_memory(std::move(memory)), m_memory(m_owned_memory.get()), m_name(name) {}

ProjectNode::ProjectNode(ProjectNode&& other) noexcept { take_over(other); }

ProjectNode& ProjectNode::operator=(ProjectNode&& other) noexcept {
    if (this == &other) return *this;
    end_texts();
    take_over(other);
    return *this;
}

ProjectNode::~ProjectNode() { end_texts(); }

// The other one is left empty.
void ProjectNode::take_over(ProjectNode& other) noexcept {
    m_owned_memory = std::move(other.m_owned_memory);
    m_memory = std::exchange(other.m_memory, nullptr);
    m_name = other.m_name;
    m_properties = std::exchange(other.m_properties, nullptr);
    m_count = std::exchange(other.m_count, 0);
    m_capacity = std::exchange(other.m_capacity, 0);
    m_key_bits = std::exchange(other.m_key_bits, 0);
    m_first_child = std::exchange(other.m_first_child, nullptr);
    m_last_child = std::exchange(other.m_last_child, nullptr);
    m_name_bits = std::exchange(other.m_name_bits, 0);
    m_next_child = std::exchange(other.m_next_child, nullptr);
    m_names_repeat = std::exchange(other.m_names_repeat, false);
    m_child_count = std::exchange(other.m_child_count, 0);
    m_index = std::move(other.m_index);
    m_children = std::move(other.m_children);
    m_next = std::exchange(other.m_next, 0);
    m_has_texts = std::exchange(other.m_has_texts, false);
}

void ProjectNode::end_texts() {
    if (m_has_texts) std::destroy_n(m_properties, m_count);
}

void ProjectNode::end_with_memory() const {
    if (!m_is_below || m_ends_with_memory) return;
    m_memory->at_end(const_cast<ProjectNode*>(this),
                     [](void* node) { static_cast<ProjectNode*>(node)->~ProjectNode(); });
    m_ends_with_memory = true;
}

void ProjectNode::clear() {
    *this = ProjectNode(m_name.data(), m_owned_memory);
    if (m_owned_memory.use_count() == 1) m_owned_memory->reset();
}

ProjectMemory& ProjectNode::memory() {
    if (!m_memory) {
        m_owned_memory = std::make_shared<ProjectMemory>();
        m_memory = m_owned_memory.get();
    }
    return *m_memory;
}

pack_node* ProjectNode::add_child(const char* name) { return &add(name ? name : ""); }

pack_node* ProjectNode::find_child(const char* name) { return name ? child(name) : nullptr; }

void ProjectNode::add_property(const char* key, pak_node_type type, void* value) {
    const KindRow* row = find_kind(type);
    bool is_new = false;
    if (key && row && value) row->take(value, stored(key, is_new).value);
}

bool ProjectNode::get_property(const char* key, pak_node_type type, void* value) {
    const KindRow* row = find_kind(type);
    const PropertyValue* found = key && row && value ? find(key) : nullptr;
    if (!found || found->index() != row->alternative) return false;
    row->give(*found, value);
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

ProjectNode& ProjectNode::add(std::string_view name) {
    ProjectMemory& memory = this->memory();
    auto* const child = new (memory.take(sizeof(ProjectNode))) ProjectNode(Below(), memory.keep(name), memory);
    const std::uint64_t bit = key_bit(name);
    // Among many the search would cost more than it saves.
    const bool is_searched = m_child_count++ < most_searched;
    m_names_repeat = m_names_repeat || !is_searched || ((m_name_bits & bit) != 0 && this->child(name));
    m_name_bits |= bit;
    (m_last_child ? m_last_child->m_sibling : m_first_child) = child;
    m_last_child = child;
    return *child;
}

const std::list<pack_node*>* ProjectNode::get_children() const {
    if (!m_children) m_children = std::make_unique<std::list<pack_node*>>();
    end_with_memory();
    const auto* const last = m_children->empty() ? nullptr : static_cast<ProjectNode*>(m_children->back());
    for (ProjectNode* child = last ? last->m_sibling : m_first_child; child; child = child->m_sibling)
        m_children->push_back(child);
    return m_children.get();
}

ProjectNode* ProjectNode::child(std::string_view name) const {
    ProjectNode* found = m_names_repeat ? nullptr : m_next_child;
    if (!found || !is_same(found->m_name, name)) {
        if ((m_name_bits & key_bit(name)) == 0) return nullptr;
        for (found = m_first_child; found && !is_same(found->m_name, name);) found = found->m_sibling;
    }
    if (found) m_next_child = found->m_sibling;
    return found;
}

Property& ProjectNode::append(std::string_view key) {
    ProjectMemory& memory = this->memory();
    // Ahead of the array, which then may grow where it lies.
    const std::string_view kept = memory.keep(key);
    if (m_count == m_capacity) {
        constexpr std::uint32_t usual = 8;
        const std::uint32_t larger = m_capacity == 0 ? usual : m_capacity * 2;
        if (!memory.extend(m_properties, m_capacity * sizeof(Property), larger * sizeof(Property))) {
            auto* const moved = static_cast<Property*>(memory.take(larger * sizeof(Property)));
            std::uninitialized_move_n(m_properties, m_count, moved);
            std::destroy_n(m_properties, m_count);
            m_properties = moved;
        }
        m_capacity = larger;
    }
    return *new (m_properties + m_count++) Property{kept, {}};
}

Property& ProjectNode::stored(std::string_view key, bool& is_new) {
    const std::size_t known = place_of(key);
    is_new = known == m_count;
    if (!is_new) return m_properties[known];
    Property& property = append(key);
    m_key_bits |= key_bit(key);
    if (m_index) {
        m_index->emplace(property.key, known);
    } else if (known == most_searched) {
        m_index = std::make_unique<Index>();
        end_with_memory();
        for (const Property& indexed : properties()) m_index->emplace(indexed.key, m_index->size());
    }
    return property;
}

bool ProjectNode::set(std::string_view key, PropertyValue value) {
    bool is_new = false;
    Property& property = stored(key, is_new);
    if (std::holds_alternative<tstringW>(value)) {
        m_has_texts = true;
        end_with_memory();
    }
    property.value = std::move(value);
    return is_new;
}

std::size_t ProjectNode::place_of(std::string_view key) const {
    if ((m_key_bits & key_bit(key)) == 0) return m_count;
    if (m_index) {
        const auto known = m_index->find(key);
        return known == m_index->end() ? m_count : known->second;
    }
    const auto known = std::find_if(m_properties, m_properties + m_count,
                                    [key](const Property& property) { return is_same(property.key, key); });
    return static_cast<std::size_t>(known - m_properties);
}

const PropertyValue* ProjectNode::find(std::string_view key) const {
    const bool guessed = m_next < m_count && is_same(m_properties[m_next].key, key);
    const std::size_t place = guessed ? m_next : place_of(key);
    if (place == m_count) return nullptr;
    m_next = static_cast<std::uint32_t>(place + 1);
    return &m_properties[place].value;
}

}  // namespace host
