#include "host/core/item_store.h"

#include <map>
#include <memory>

#include "host/core/text_conversion.h"

namespace host {
namespace {

constexpr const char* type_key = "type";

std::map<unsigned long, ItemKind>& kinds() {
    static std::map<unsigned long, ItemKind> all;
    return all;
}

const void* current_owner = nullptr;

}  // namespace

void set_registering_owner(const void* owner) { current_owner = owner; }
const void* registering_owner() { return current_owner; }

void forget_item_kinds(const void* owner) {
    std::erase_if(kinds(), [owner](const auto& entry) { return entry.second.owner == owner; });
}

void register_item_creator(unsigned long type, const tstringW& name, ItemCreator creator, unsigned long flags,
                           ItemFinder finder) {
    kinds()[type] = {type, name, creator, flags, current_owner, finder};
}

const ItemKind* find_item_kind(unsigned long type) {
    const auto kind = kinds().find(type);
    return kind == kinds().end() || !kind->second.creator ? nullptr : &kind->second;
}

std::vector<ItemKind> item_kinds() {
    std::vector<ItemKind> all;
    for (const auto& entry : kinds()) all.push_back(entry.second);
    return all;
}

}  // namespace host

// An item without an identifier of its own writes nothing here: an item that writes nothing at all is not stored.
void IBaseItem::save_to_node(pack_node* node, const save_operation&) {
    if (node && !m_item_id.is_empty()) node->add_string_property(host::item_id_key, m_item_id.to_text());
}

void IBaseItem::on_parse(pack_node* node, const load_operation&) {
    tstringW text;
    if (node && node->get_string_property(host::item_id_key, text)) m_item_id = CGuid(text.c_str());
}

// An empty node stands for no item. An item of a kind that no one could make again is stored as no item too.
void save_item_to_node(const char* key, pack_node* node, IBaseItem* item, const save_operation& operation) {
    pack_node* place = node ? node->add_child(key) : nullptr;
    if (!place || !item || !host::find_item_kind(item->get_type())) return;
    int type = static_cast<int>(item->get_type());
    place->add_property(host::type_key, PAK_INT, &type);
    item->save_to_node(place, operation);
}

IBaseItem* load_item_from_node(const char* key, pack_node* node, const load_operation& operation) {
    pack_node* place = node ? node->find_child(key) : nullptr;
    int type = 0;
    if (!place || !place->get_property(host::type_key, PAK_INT, &type)) return nullptr;
    const host::ItemKind* kind = host::find_item_kind(static_cast<unsigned>(type));
    if (kind && kind->finder) {
        if (IBaseItem* known = kind->finder(*place, operation)) return known;
    }
    std::unique_ptr<IBaseItem> item(kind ? kind->creator(operation.system) : nullptr);
    if (!item) {
        if (operation.warnings)
            operation.warnings->push_back(to_utf8(operation.owner_name) + ", " + key + ": unknown kind of item " +
                                          std::to_string(type));
        return nullptr;
    }
    if (auto* placed = dynamic_cast<host::PlacedItem*>(item.get()))
        placed->set_place(operation.owner_id, operation.owner_name, key);
    item->on_parse(place, operation);
    item->on_ready();
    return item.release();
}
