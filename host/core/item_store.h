#pragma once

// Item kinds by number, and the storing of items inside items. What belongs to every item is stored here too.

#include <string>
#include <vector>

#include "engine/base_item.h"
#include "engine/guid.h"
#include "engine/text.h"
#include "host/core/project_operations.h"

namespace host {

/// Sub-items that the engine itself provides.
inline constexpr unsigned long ITEM_TYPE_PICTURE = 100001;
inline constexpr unsigned long ITEM_TYPE_SCRIPT = 100002;

/// Where an item's own identifier is stored, if it has one.
inline constexpr const char* item_id_key = "m_item_id";

using ItemCreator = IBaseItem* (*)(XSystem*);
/// An item of this load that says the same as the node, or null: for kinds whose items may stand in several places.
using ItemFinder = IBaseItem* (*)(pack_node&, const load_operation&);

struct ItemKind {
    unsigned long type = 0;
    tstringW name;
    ItemCreator creator = nullptr;
    /// As the module gave them; the host stores and shows them.
    unsigned long flags = 0;
    /// Whose creator it is; null for the engine's own.
    const void* owner = nullptr;
    /// Null where every place has an item of its own.
    ItemFinder finder = nullptr;
};

/// A second registration of a type replaces the first: a module that is loaded again brings its own creators.
void register_item_creator(unsigned long type, const tstringW& name, ItemCreator creator, unsigned long flags,
                           ItemFinder finder = nullptr);
/// Whoever registers from now on does it for this owner; null for the engine itself.
void set_registering_owner(const void* owner);
const void* registering_owner();
/// Forgets what still belongs to the owner, whose code is about to be unloaded.
void forget_item_kinds(const void* owner);
/// Null for an unknown type. Valid until the next registration.
const ItemKind* find_item_kind(unsigned long type);
/// In the order of their numbers.
std::vector<ItemKind> item_kinds();

/// A sub-item that wants to know where it hangs: under which key of which actor's item.
class PlacedItem {
public:
    virtual void set_place(const CGuid& owner_id, const tstringW& owner_name, const std::string& key) = 0;

protected:
    ~PlacedItem() = default;
};

}  // namespace host
