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
    if (m_content) end(*m_content);
    take_over(other);
    return *this;
}

ProjectNode::~ProjectNode() {
    if (m_content && !m_is_below) end(*m_content);
}

// The other one is left empty.
void ProjectNode::take_over(ProjectNode& other) noexcept {
    m_owned_memory = std::move(other.m_owned_memory);
    m_memory = std::exchange(other.m_memory, nullptr);
    m_name = other.m_name;
    m_content = std::exchange(other.m_content, nullptr);
}

void ProjectNode::end(Content& content) {
    if (content.has_texts) std::destroy_n(content.properties, content.made);
    content.index.reset();
    content.children.reset();
}

void ProjectNode::end_with_memory(Content& content) const {
    if (!m_is_below || content.ends_with_memory) return;
    m_memory->at_end(&content, [](void* ended) { end(*static_cast<Content*>(ended)); });
    content.ends_with_memory = true;
}

void ProjectNode::begin_again() {
    if (!m_content) return;
    if (m_memory->is_small()) return begin_again(*m_content);
    *this = ProjectNode(m_name.data(), m_owned_memory);
    if (m_owned_memory.use_count() == 1) m_owned_memory->reset();
}

// The bits of names stay: with too many of them nothing is overlooked.
void ProjectNode::begin_again(Content& content) {
    if (!content.repeats) content.former = content.count;
    content.repeats = !content.index;
    if (!content.repeats) content.key_bits = 0;
    content.index.reset();
    content.children.reset();
    content.count = content.next = content.child_count = 0;
    content.former_child = std::exchange(content.first_child, nullptr);
    content.last_child = content.next_child = nullptr;
}

ProjectMemory& ProjectNode::memory() {
    if (!m_memory) {
        m_owned_memory = std::make_shared<ProjectMemory>();
        m_memory = m_owned_memory.get();
    }
    return *m_memory;
}

ProjectNode::Content& ProjectNode::make_content() {
    return *(m_content = new (memory().take(sizeof(Content))) Content);
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
    if (!key) return;
    bool is_new = false;
    PropertyValue& value = stored(key, is_new).value;
    hold_texts();
    // One of the time before has the memory for it.
    if (tstringW* former = std::get_if<tstringW>(&value)) {
        *former = text;
    } else {
        value = text;
    }
}

bool ProjectNode::get_string_property(const char* key, tstringW& text) {
    const PropertyValue* found = key ? find(key) : nullptr;
    const tstringW* stored = found ? std::get_if<tstringW>(found) : nullptr;
    if (stored) text = *stored;
    return stored != nullptr;
}

ProjectNode& ProjectNode::add(std::string_view name) {
    Content& content = this->content();
    ProjectNode* const former = content.former_child;
    if (!former || !is_same(former->m_name, name)) {
        content.former_child = nullptr;
        return append_child(content, name);
    }
    content.former_child = std::exchange(former->m_sibling, nullptr);
    if (former->m_content) begin_again(*former->m_content);
    ++content.child_count;
    (content.last_child ? content.last_child->m_sibling : content.first_child) = former;
    return *(content.last_child = former);
}

ProjectNode& ProjectNode::append_child(Content& content, std::string_view name) {
    auto* const child = new (m_memory->take(sizeof(ProjectNode))) ProjectNode(Below(), m_memory->keep(name), *m_memory);
    const std::uint64_t bit = key_bit(name);
    // Among many the search would cost more than it saves.
    const bool is_searched = content.child_count++ < most_searched;
    content.names_repeat =
        content.names_repeat || !is_searched || ((content.name_bits & bit) != 0 && this->child(name));
    content.name_bits |= bit;
    (content.last_child ? content.last_child->m_sibling : content.first_child) = child;
    content.last_child = child;
    return *child;
}

const std::list<pack_node*>* ProjectNode::get_children() const {
    static const std::list<pack_node*> none;
    if (!m_content) return &none;
    std::unique_ptr<std::list<pack_node*>>& list = m_content->children;
    if (!list) {
        end_with_memory(*m_content);
        list = std::make_unique<std::list<pack_node*>>();
    }
    const auto* const last = list->empty() ? nullptr : static_cast<ProjectNode*>(list->back());
    for (ProjectNode* child = last ? last->m_sibling : m_content->first_child; child; child = child->m_sibling)
        list->push_back(child);
    return list.get();
}

ProjectNode* ProjectNode::child(std::string_view name) const {
    if (!m_content) return nullptr;
    ProjectNode* found = m_content->names_repeat ? nullptr : m_content->next_child;
    if (!found || !is_same(found->m_name, name)) {
        if ((m_content->name_bits & key_bit(name)) == 0) return nullptr;
        for (found = m_content->first_child; found && !is_same(found->m_name, name);) found = found->m_sibling;
    }
    if (found) m_content->next_child = found->m_sibling;
    return found;
}

Property& ProjectNode::append(Content& content, std::string_view key) {
    // Ahead of the array, which then may grow where it lies.
    const std::string_view kept = m_memory->keep(key);
    if (content.count < content.made) {
        content.properties[content.count].key = kept;
        return content.properties[content.count++];
    }
    if (content.count == content.capacity) {
        constexpr std::uint32_t usual = 8;
        const std::uint32_t larger = content.capacity == 0 ? usual : content.capacity * 2;
        if (!m_memory->extend(content.properties, content.capacity * sizeof(Property), larger * sizeof(Property))) {
            auto* const moved = static_cast<Property*>(m_memory->take(larger * sizeof(Property)));
            std::uninitialized_move_n(content.properties, content.count, moved);
            std::destroy_n(content.properties, content.count);
            content.properties = moved;
        }
        content.capacity = larger;
    }
    ++content.made;
    return *new (content.properties + content.count++) Property{kept, {}};
}

Property& ProjectNode::stored(std::string_view key, bool& is_new) {
    Content& content = this->content();
    is_new = content.repeats && content.count < content.former && is_same(content.properties[content.count].key, key);
    return is_new ? content.properties[content.count++] : stored_anew(content, key, is_new);
}

Property& ProjectNode::stored_anew(Content& content, std::string_view key, bool& is_new) {
    if (content.repeats) {
        // From here on it is a tree like any other.
        content.repeats = false;
        content.key_bits = 0;
        for (const Property& property : properties()) content.key_bits |= key_bit(property.key);
    }
    const std::uint64_t bit = key_bit(key);
    const std::size_t known = place_of(content, key, bit);
    is_new = known == content.count;
    if (!is_new) return content.properties[known];
    Property& property = append(content, key);
    content.key_bits |= bit;
    if (content.index) {
        content.index->emplace(property.key, known);
    } else if (known == most_searched) {
        end_with_memory(content);
        content.index = std::make_unique<Index>();
        for (const Property& indexed : properties()) content.index->emplace(indexed.key, content.index->size());
    }
    return property;
}

void ProjectNode::hold_texts() {
    m_content->has_texts = true;
    end_with_memory(*m_content);
}

bool ProjectNode::set(std::string_view key, PropertyValue value) {
    bool is_new = false;
    Property& property = stored(key, is_new);
    if (std::holds_alternative<tstringW>(value)) hold_texts();
    property.value = std::move(value);
    return is_new;
}

std::size_t ProjectNode::place_of(const Content& content, std::string_view key, std::uint64_t bit) {
    if ((content.key_bits & bit) == 0) return content.count;
    if (content.index) {
        const auto known = content.index->find(key);
        return known == content.index->end() ? content.count : known->second;
    }
    const auto known = std::find_if(content.properties, content.properties + content.count,
                                    [key](const Property& property) { return is_same(property.key, key); });
    return static_cast<std::size_t>(known - content.properties);
}

const PropertyValue* ProjectNode::find(std::string_view key) const {
    if (!m_content) return nullptr;
    Content& content = *m_content;
    const bool guessed = content.next < content.count && is_same(content.properties[content.next].key, key);
    const std::size_t place = guessed ? content.next : place_of(content, key, key_bit(key));
    if (place == content.count) return nullptr;
    content.next = static_cast<std::uint32_t>(place + 1);
    return &content.properties[place].value;
}

}  // namespace host
