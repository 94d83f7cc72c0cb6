#pragma once

#include <cstddef>

/// Where a walk over a list stands, told of every change of the list.
struct ItemWalk {
    // The entries from begin up to end are still to be visited.
    std::size_t begin = 0;
    std::size_t end = 0;
    ItemWalk* outer = nullptr;
    /// False once the list is gone.
    bool has_list = true;
};

/// The walks in progress over one list, the innermost first.
class ItemWalks {
public:
    ItemWalks() = default;
    ItemWalks(const ItemWalks&) = delete;
    ItemWalks& operator=(const ItemWalks&) = delete;
    ~ItemWalks();

    void enter(ItemWalk& walk);
    /// Walks leave in the reverse order of their entering.
    void leave(ItemWalk& walk);

    bool none() const { return !m_innermost; }
    /// All entries stand so many places further back.
    void moved_back(std::size_t places);
    /// Nothing is left to visit for any of them.
    void end_all();

private:
    ItemWalk* m_innermost = nullptr;
};
