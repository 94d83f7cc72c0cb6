#pragma once

#include <cstdint>
#include <vector>

#include "engine/guid.h"

class CSimpleGUIAnimNode;
class CSimpleGUIDialog;
class CSimpleGUIManager;
class CSimpleGUIShape;

/// Finds nodes and their items in constant time. True for one operation only, for actors and nodes can take other
/// identifiers without a word to the module.
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
        /// The last dialog that asked for the nodes of this shape.
        const CSimpleGUIDialog* asked_by = nullptr;
    };

    /// The memory of earlier calls is used again. The items are looked for when the first of them is asked for: most
    /// dialogs that change their size hold nothing that is animated.
    void build(const CSimpleGUIManager& manager);

    /// Null for a node that the manager's list does not name, and for one that is none of the GUI.
    const Item* item_of(CSimpleGUIAnimNode& node);
    /// Calls visit(node) for the nodes that move the shape. A second call for the dialog finds none: lists may name a
    /// shape twice.
    template <class Visit>
    void each_node_of(const CSimpleGUIShape& shape, const CSimpleGUIDialog& dialog, Visit visit) {
        Item* item = item_of(shape);
        if (!item || item->asked_by == &dialog) return;
        item->asked_by = &dialog;
        for (std::int32_t at = item->first_node; at != none; at = m_nodes[static_cast<std::size_t>(at)].next) {
            visit(*m_nodes[static_cast<std::size_t>(at)].node);
        }
    }

private:
    static constexpr std::int32_t none = -1;
    struct Node {
        CSimpleGUIAnimNode* node;
        std::int32_t next;
    };

    // Null for an identifier that no node has, and for a shape that is not the first of its identifier.
    Item* item_of(const CSimpleGUIShape& shape);
    std::size_t slot_of(const CGuid& id) const;
    Item* find(const CGuid& id);
    void add(CSimpleGUIAnimNode& node);
    void find_items();

    const CSimpleGUIManager* m_manager = nullptr;
    bool m_items_found = false;
    std::vector<Node> m_nodes;
    std::vector<Item> m_items;
    // A hash table with open addresses: places in m_items. A power of two, and at most half full.
    std::vector<std::int32_t> m_slots;
};

/// The index of the operation in work. It is built where the outermost of several begins; all must be the same
/// manager's.
class NodeIndexInUse {
public:
    explicit NodeIndexInUse(const CSimpleGUIManager& manager);
    ~NodeIndexInUse();
    NodeIndexInUse(const NodeIndexInUse&) = delete;
    NodeIndexInUse& operator=(const NodeIndexInUse&) = delete;

    NodeIndex* operator->() const;
};
