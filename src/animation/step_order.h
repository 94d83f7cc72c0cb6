#pragma once

// What a step of all animations reads lies all over the memory, and waiting for it takes far longer than the work. The
// engine plays its nodes in much the same order each time, so that the nodes to come are known well before.

#include <algorithm>
#include <cstddef>
#include <vector>

class CSimpleGUIAnimNode;

/// The order in which the nodes were animated when they last were. Owns nothing, names no node that is gone.
class StepOrder {
public:
    /// Makes room, so that nothing is asked for while animations play.
    void reserve(std::size_t nodes) {
        if (nodes > m_nodes.capacity()) m_nodes.reserve(std::max(nodes, 2 * m_nodes.capacity()));
    }
    /// This one is animated now.
    void enter(CSimpleGUIAnimNode* node) {
        if (m_next == m_nodes.size() || m_nodes[m_next] != node) learn(node);
        ++m_next;
    }
    /// The node that was animated so many steps behind the present one; null if none was.
    const CSimpleGUIAnimNode* ahead(std::size_t steps) const {
        const std::size_t place = m_next + steps - 1;
        return place < m_nodes.size() ? m_nodes[place] : nullptr;
    }
    /// A node goes. What is left would have a gap, so the next step is learned from the start.
    void forget() {
        m_nodes.clear();
        m_next = 0;
    }

private:
    void learn(CSimpleGUIAnimNode* node) {
        // The first node of a step tells that the last step has ended.
        const bool begins = !m_nodes.empty() && m_nodes.front() == node;
        if (begins || m_next == m_nodes.capacity()) m_next = 0;
        if (m_next == m_nodes.size()) m_nodes.push_back(node);
        m_nodes[m_next] = node;
    }

    std::vector<CSimpleGUIAnimNode*> m_nodes;
    std::size_t m_next = 0;
};
