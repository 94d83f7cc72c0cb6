#include "animation/node_index.h"

#include <bit>
#include <cstring>
#include <utility>

#include "animation/anim_node.h"
#include "layout/shape.h"
#include "module/manager.h"

namespace {

// One thread, one operation at a time. Kept between them, since a dialog whose size plays is resized at every step.
NodeIndex index_in_use;
int users = 0;

// A product with it carries all bits upwards.
constexpr std::uint64_t odd = 0x9E3779B97F4A7C15u;

std::uint64_t hash_of(const CGuid& id) {
    std::uint64_t halves[2];
    std::memcpy(halves, id.bytes(), sizeof halves);
    // Identifiers may count up in any of their bytes.
    const std::uint64_t mixed = (halves[0] * odd) ^ (halves[1] + (halves[0] >> 32));
    return (mixed ^ (mixed >> 29)) * odd >> 20;
}

std::uint64_t hash_of(const void* address) { return reinterpret_cast<std::uintptr_t>(address) * odd >> 20; }

}  // namespace

std::size_t NodeIndex::slot_of(const CGuid& id) const {
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = static_cast<std::size_t>(hash_of(id)) & mask;
    while (m_slots[slot] != none && !(m_items[static_cast<std::size_t>(m_slots[slot])].id == id)) {
        slot = (slot + 1) & mask;
    }
    return slot;
}

NodeIndex::Item* NodeIndex::find(const CGuid& id) {
    const std::int32_t place = m_slots[slot_of(id)];
    return place == none ? nullptr : &m_items[static_cast<std::size_t>(place)];
}

void NodeIndex::add(CSimpleGUIAnimNode& node) {
    const CGuid id = node.get_internal_item_id();
    std::int32_t& place = m_slots[slot_of(id)];
    if (place == none) {
        place = static_cast<std::int32_t>(m_items.size());
        m_items.emplace_back().id = id;
    }
    Item& item = m_items[static_cast<std::size_t>(place)];
    const auto at = static_cast<std::int32_t>(m_nodes.size());
    m_nodes.push_back({&node, none});
    if (item.first_node == none) {
        item.first_node = at;
    } else {
        m_nodes[static_cast<std::size_t>(item.last_node)].next = at;
    }
    item.last_node = at;
}

void NodeIndex::begin(const CSimpleGUIManager& manager, bool keep) {
    ++m_operation;
    const std::array revisions = {manager.m_anim_nodes.revision(), manager.m_shapes.revision(),
                                  manager.m_dialogs.revision()};
    m_is_fresh = false;
    m_is_wide = !keep;
    if (keep && revisions == m_revisions) return;
    m_manager = &manager;
    m_revisions = {};
    build();
    m_revisions = revisions;
}

void NodeIndex::build() {
    m_is_fresh = true;
    m_items_found = false;
    m_nodes.clear();
    m_items.clear();
    m_slots.assign(std::bit_ceil(m_manager->m_anim_nodes.size() * 2 + 1), none);
    for (CSimpleGUIAnimNode* node : m_manager->m_anim_nodes) {
        if (node && node->get_type() == ANIM_NODE_TYPE_GUI) add(*node);
    }
}

// In the middle of an operation, which has asked for some items already.
void NodeIndex::build_again() {
    std::vector<Item> asked;
    for (const Item& item : m_items)
        if (item.asked_in == m_operation) asked.push_back(item);
    // Without the memory for it nothing half-built may be kept.
    const auto revisions = std::exchange(m_revisions, {});
    build();
    m_revisions = revisions;
    for (const Item& before : asked) {
        if (Item* item = find(before.id)) {
            item->asked_by = before.asked_by;
            item->asked_in = before.asked_in;
        }
    }
}

std::size_t NodeIndex::first_slot_of(const CSimpleGUIShape* shape) const {
    return static_cast<std::size_t>(hash_of(shape)) & (m_shape_slots.size() - 1);
}

std::int32_t& NodeIndex::slot_of(const CSimpleGUIShape* shape) {
    const std::size_t mask = m_shape_slots.size() - 1;
    std::size_t slot = first_slot_of(shape);
    while (m_shape_slots[slot] != none && m_items[static_cast<std::size_t>(m_shape_slots[slot])].shape != shape) {
        slot = (slot + 1) & mask;
    }
    return m_shape_slots[slot];
}

void NodeIndex::find_items() {
    if (m_items_found) return;
    m_shape_slots.assign(m_slots.size(), none);
    m_items_found = true;
    Approach approach(m_manager->m_shapes.begin(), m_manager->m_shapes.end(), fetch_actor_of, fetch_id_of);
    for (CSimpleGUIShape* shape : m_manager->m_shapes) {
        approach.next();
        Item* item = shape && shape->m_actor ? find(shape->m_actor->get_id()) : nullptr;
        if (!item || item->shape) continue;
        item->shape = shape;
        slot_of(shape) = static_cast<std::int32_t>(item - m_items.data());
    }
    for (CSimpleGUIDialog* dialog : m_manager->m_dialogs) {
        Item* item = dialog && dialog->m_actor ? find(dialog->m_actor->get_id()) : nullptr;
        if (item && !item->dialog) item->dialog = dialog;
    }
}

const NodeIndex::Item* NodeIndex::item_of(CSimpleGUIAnimNode& node) {
    if (node.get_type() != ANIM_NODE_TYPE_GUI) return nullptr;
    find_items();
    return find(node.get_internal_item_id());
}

NodeIndex::Item* NodeIndex::item_of(const CSimpleGUIShape& shape) {
    if (m_is_wide) {
        find_items();
        const std::int32_t place = slot_of(&shape);
        return place == none ? nullptr : &m_items[static_cast<std::size_t>(place)];
    }
    Item* item = shape.m_actor ? find(shape.m_actor->get_id()) : nullptr;
    if (!item) return nullptr;
    find_items();
    if (!m_is_fresh && !is_surely(shape, *item)) {
        build_again();
        find_items();
        item = find(shape.m_actor->get_id());
    }
    return item && item->shape == &shape ? item : nullptr;
}

// What was found in an earlier operation still holds if the scene knows the identifier by the same actor.
bool NodeIndex::is_surely(const CSimpleGUIShape& shape, const Item& item) const {
    return item.shape == &shape &&
           m_manager->get_system()->m_scene_manager->search_actor_by_guid(item.id) == shape.m_actor;
}

NodeIndexInUse::NodeIndexInUse(const CSimpleGUIManager& manager, bool keep) {
    // Counted once it is built: without the memory for it there must be no use of a half-built one later on.
    if (users == 0) index_in_use.begin(manager, keep);
    ++users;
}

NodeIndexInUse::~NodeIndexInUse() { --users; }

NodeIndex* NodeIndexInUse::operator->() const { return &index_in_use; }
