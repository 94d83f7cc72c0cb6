#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "engine/guid.h"
#include "layout/approach.h"
#include "layout/dialog.h"

class CSimpleGUIAnimNode;
class CSimpleGUIManager;

/// Finds nodes and their items in constant time. Actors can take other identifiers without a word to the module, so
/// what an earlier operation has found is looked at again before it counts.
class NodeIndex {
public:
    /// What the nodes of one identifier move, as the manager's look-ups find it: of several items the first in its
    /// list, null if there is none.
    struct Item {
        CGuid id;
        CSimpleGUIDialog* dialog = nullptr;
        CSimpleGUIShape* shape = nullptr;
        /// The nodes, in the order of the manager's list.
        std::int32_t first_node = none;
        std::int32_t last_node = none;
        /// The last dialog that asked for the nodes of this shape, and in which operation.
        const CSimpleGUIDialog* asked_by = nullptr;
        std::uint64_t asked_in = 0;
    };

    /// Begins an operation. With `keep` what was found earlier stays as long as no list has changed: for an operation
    /// on one dialog, of which a step of all animations may hold many. The items are looked for when the first of them
    /// is asked for, or the shapes of a dialog are: most that change their size alone hold nothing that is animated.
    void begin(const CSimpleGUIManager& manager, bool keep);

    /// Null for a node that the manager's list does not name, and for one that is none of the GUI.
    const Item* item_of(CSimpleGUIAnimNode& node);
    /// Calls visit(shape, node) for the nodes that move a shape of the dialog's list. Each shape comes once: lists may
    /// name one twice.
    template <class Visit>
    void each_node_of_shapes(const CSimpleGUIDialog& dialog, Visit visit) {
        const auto& shapes = dialog.m_shapes;
        const auto each = [&](auto approach) {
            for (CSimpleGUIShape* shape : shapes) {
                approach.next();
                Item* item = shape ? item_of(*shape) : nullptr;
                if (!item || (item->asked_by == &dialog && item->asked_in == m_operation)) continue;
                item->asked_by = &dialog;
                item->asked_in = m_operation;
                for (std::int32_t at = item->first_node; at != none; at = m_nodes[static_cast<std::size_t>(at)].next) {
                    visit(*shape, *m_nodes[static_cast<std::size_t>(at)].node);
                }
            }
        };
        if (!m_is_wide) return each(Approach(shapes.begin(), shapes.end(), fetch_actor_of, fetch_id_of));
        // The shapes are known without being read.
        find_items();
        each(Approach(
            shapes.begin(), shapes.end(),
            [this](const CSimpleGUIShape& shape) { fetch(&m_shape_slots[first_slot_of(&shape)]); },
            [this](const CSimpleGUIShape& shape) {
                const std::int32_t place = m_shape_slots[first_slot_of(&shape)];
                if (place != none) fetch(&m_items[static_cast<std::size_t>(place)]);
            }));
    }

private:
    static constexpr std::int32_t none = -1;
    struct Node {
        CSimpleGUIAnimNode* node;
        std::int32_t next;
    };

    // Ahead of a walk that asks the actor of each shape for its identifier.
    static void fetch_actor_of(const CSimpleGUIShape& shape) { fetch(&shape.m_actor); }
    static void fetch_id_of(const CSimpleGUIShape& shape) { fetch(shape.m_actor); }

    // Null for an identifier that no node has, and for a shape that is not the first of its identifier.
    Item* item_of(const CSimpleGUIShape& shape);
    void build();
    void build_again();
    bool is_surely(const CSimpleGUIShape& shape, const Item& item) const;
    std::size_t slot_of(const CGuid& id) const;
    Item* find(const CGuid& id);
    void add(CSimpleGUIAnimNode& node);
    void find_items();
    std::size_t first_slot_of(const CSimpleGUIShape* shape) const;
    std::int32_t& slot_of(const CSimpleGUIShape* shape);

    const CSimpleGUIManager* m_manager = nullptr;
    std::uint64_t m_operation = 0;
    // Of the nodes, the shapes and the dialogs, when this was built.
    std::array<std::uint64_t, 3> m_revisions{};
    // Built in the operation in work.
    bool m_is_fresh = false;
    // The operation in work is one on all dialogs, which looks at the identifiers of all shapes anyway.
    bool m_is_wide = false;
    bool m_items_found = false;
    std::vector<Node> m_nodes;
    std::vector<Item> m_items;
    // A hash table with open addresses: places in m_items. A power of two, and at most half full.
    std::vector<std::int32_t> m_slots;
    // The same for items that are shapes, by their addresses: a wide operation reads no shape a second time.
    std::vector<std::int32_t> m_shape_slots;
};

/// The index of the operation in work. It is built where the outermost of several begins; all must be the same
/// manager's.
class NodeIndexInUse {
public:
    explicit NodeIndexInUse(const CSimpleGUIManager& manager, bool keep = false);
    ~NodeIndexInUse();
    NodeIndexInUse(const NodeIndexInUse&) = delete;
    NodeIndexInUse& operator=(const NodeIndexInUse&) = delete;

    NodeIndex* operator->() const;
};
