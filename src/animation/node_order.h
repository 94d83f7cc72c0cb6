#pragma once

// What an operation on many nodes reads lies all over the memory, and waiting for it takes far longer than the work.
// The nodes come in much the same order each time, so that those to come are known well before and can be fetched.

#include <algorithm>
#include <cstddef>
#include <vector>

class CSimpleGUIAnimNode;

/// The order in which the nodes came when they last did. Owns nothing, names no node that is gone.
class NodeOrder {
public:
    /// Makes room, so that no memory is asked for while the nodes come.
    void reserve(std::size_t nodes) {
        if (nodes > m_nodes.capacity()) m_nodes.reserve(std::max(nodes, 2 * m_nodes.capacity()));
    }
    /// This one comes now.
    void enter(CSimpleGUIAnimNode* node) {
        if (m_next == m_nodes.size() || m_nodes[m_next] != node) learn(node);
        ++m_next;
    }
    /// The node that came so many places behind the present one; null if none did.
    const CSimpleGUIAnimNode* ahead(std::size_t steps) const {
        const std::size_t place = m_next + steps - 1;
        return place < m_nodes.size() ? m_nodes[place] : nullptr;
    }
    /// A node goes. What is left would have a gap, so the order is learned from the start.
    void forget() {
        m_nodes.clear();
        m_next = 0;
    }

private:
    void learn(CSimpleGUIAnimNode* node) {
        // The first one tells that all begin again.
        const bool begins = !m_nodes.empty() && m_nodes.front() == node;
        if (begins || m_next == m_nodes.capacity()) m_next = 0;
        if (m_next == m_nodes.size()) m_nodes.push_back(node);
        m_nodes[m_next] = node;
    }

    std::vector<CSimpleGUIAnimNode*> m_nodes;
    std::size_t m_next = 0;
};

/// Of the steps of animations, and of the nodes whose keys are brought in line with a frame.
struct NodeOrders {
    NodeOrder steps;
    NodeOrder rescalings;
};
inline NodeOrders node_orders;
