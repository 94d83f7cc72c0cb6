#include "scratch_engine/tree.h"

#include <cstring>
#include <stdexcept>

namespace {

std::size_t size_of(int type) {
    switch (type) {
        case PAK_VEC3:
            return sizeof(VEC3);
        case PAK_RECT:
            return sizeof(CRect);
        case PAK_VEC4:
            return sizeof(VEC4);
        default:
            return 4;
    }
}

MemoryNode& memory(pack_node* node) { return *static_cast<MemoryNode*>(node); }

}  // namespace

std::string described(int kind, const std::string& key) {
    static const std::pair<int, const char*> names[] = {
        {MemoryNode::BASE, "base"}, {MemoryNode::TEXT, "text"}, {MemoryNode::ITEM, "item"},
        {PAK_INT, "int"},           {PAK_VEC3, "vec3"},         {PAK_FLOAT, "float"},
        {PAK_RECT, "rect"},         {PAK_VEC4, "vec4"},         {PAK_BOOL, "bool"},
    };
    for (const auto& [number, name] : names) {
        if (number == kind) return std::string(name) + (key.empty() ? "" : " ") + key;
    }
    return "unknown kind " + std::to_string(kind) + " " + key;
}

pack_node* MemoryNode::add_child(const char* name) {
    m_owned.push_back(std::make_unique<MemoryNode>(name));
    m_children.push_back(m_owned.back().get());
    return m_children.back();
}

pack_node* MemoryNode::find_child(const char* name) {
    for (const auto& node : m_owned) {
        if (node->m_name == name) return node.get();
    }
    return nullptr;
}

void MemoryNode::add_property(const char* key, pak_node_type type, void* value) {
    entries.push_back({key, type, std::string(static_cast<const char*>(value), size_of(type)), {}, {}});
}

bool MemoryNode::get_property(const char* key, pak_node_type type, void* value) {
    asked.push_back(described(type, key));
    const Entry* entry = find(key, type);
    if (entry) std::memcpy(value, entry->bytes.data(), entry->bytes.size());
    return entry != nullptr;
}

void MemoryNode::add_string_property(const char* key, const tstringW& text) {
    entries.push_back({key, TEXT, {}, text, {}});
}

bool MemoryNode::get_string_property(const char* key, tstringW& text) {
    asked.push_back(described(TEXT, key));
    const Entry* entry = find(key, TEXT);
    if (entry) text = entry->text;
    return entry != nullptr;
}

MemoryNode::Entry* MemoryNode::find(const std::string& key, int kind) {
    for (Entry& entry : entries) {
        if (entry.key == key && entry.kind == kind) return &entry;
    }
    return nullptr;
}

void MemoryNode::erase(const std::string& key) {
    std::erase_if(entries, [&](const Entry& entry) { return entry.key == key; });
}

std::vector<std::string> MemoryNode::written() const {
    std::vector<std::string> lines;
    for (const Entry& entry : entries) lines.push_back(described(entry.kind, entry.key));
    return lines;
}

void MemoryNode::require(bool found, const char* key) {
    if (!found) throw std::runtime_error(std::string("no such property: ") + key);
}

void IBaseItem::save_to_node(pack_node* node, const save_operation&) {
    memory(node).entries.push_back({"", MemoryNode::BASE, {}, {}, {}});
}

void IBaseItem::on_parse(pack_node* node, const load_operation&) {
    memory(node).asked.push_back(described(MemoryNode::BASE, ""));
}

void save_item_to_node(const char* key, pack_node* node, IBaseItem* item, const save_operation&) {
    memory(node).entries.push_back({key, MemoryNode::ITEM, {}, {}, CMyComPtr<IBaseItem>(item)});
}

IBaseItem* load_item_from_node(const char* key, pack_node* node, const load_operation&) {
    memory(node).asked.push_back(described(MemoryNode::ITEM, key));
    const MemoryNode::Entry* entry = memory(node).find(key, MemoryNode::ITEM);
    return entry ? entry->item.get() : nullptr;
}
