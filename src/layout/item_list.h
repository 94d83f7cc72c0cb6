#pragma once

// The list in which the manager and the dialogs keep their items. It owns nothing, may hold nulls, and can be walked
// while a script changes it under the walk: what is taken out is not visited any more, what is put in is not visited
// in that walk, and nothing is skipped or visited twice.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "layout/item_walk.h"

template <class T>
class ItemList {
public:
    /// One pass over a list. Ends early when the list is cleared, replaced or destroyed. Copies no items, so it costs
    /// nothing but its place on the stack.
    class Walk {
    public:
        enum Direction { FRONT_TO_BACK, BACK_TO_FRONT };

        Walk(ItemList& list, Direction direction) : m_list(&list), m_direction(direction) {
            m_walk.end = list.m_items.size();
            list.m_walks.enter(m_walk);
        }
        ~Walk() {
            if (m_walk.has_list) m_list->m_walks.leave(m_walk);
        }
        Walk(const Walk&) = delete;
        Walk& operator=(const Walk&) = delete;

        /// The next item, which may be null. False when there is none left.
        bool next(T*& item) {
            if (m_walk.begin >= m_walk.end) return false;
            item = m_list->m_items[m_direction == FRONT_TO_BACK ? m_walk.begin++ : --m_walk.end];
            return true;
        }

        /// What a walk to the front will visit in so many steps, if nothing changes; null if nothing. Not to be
        /// touched, only to be fetched.
        const T* ahead(std::size_t steps) const {
            return m_walk.end >= m_walk.begin + steps && steps > 0 ? m_list->m_items[m_walk.end - steps] : nullptr;
        }

    private:
        ItemList* m_list;
        ItemWalk m_walk;
        Direction m_direction;
    };

    ItemList() = default;
    /// Copies the entries; walks stay with the list that they began on.
    ItemList(const ItemList& other) : m_items(other.m_items) {}
    ItemList& operator=(const ItemList& other) {
        if (this != &other) assign(other.m_items);
        return *this;
    }
    ~ItemList() = default;

    /// Another one after each change; no two lists have the same.
    std::uint64_t revision() const { return m_revision; }
    /// Something that others know of the items has changed.
    void touch() { m_revision = ++revisions; }

    bool empty() const { return m_items.empty(); }
    std::size_t size() const { return m_items.size(); }
    T* operator[](std::size_t index) const { return m_items[index]; }
    T* front() const { return m_items.front(); }
    T* back() const { return m_items.back(); }

    /// Plain iteration, for passes in which nothing can change the list.
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }
    auto rbegin() const { return m_items.rbegin(); }
    auto rend() const { return m_items.rend(); }

    bool contains(const T* item) const { return std::find(m_items.begin(), m_items.end(), item) != m_items.end(); }

    void push_back(T* item) {
        touch();
        m_items.push_back(item);
    }
    void push_front(T* item) {
        touch();
        m_items.insert(m_items.begin(), item);
        m_walks.inserted_at_front();
    }

    /// Takes the item out, wherever it stands. Looks from the back, where the items made last go first.
    void remove(const T* item) {
        const auto found = std::find(m_items.rbegin(), m_items.rend(), item);
        if (found == m_items.rend()) return;
        touch();
        const auto place = m_items.erase(std::next(found).base()) - m_items.begin();
        m_walks.removed(static_cast<std::size_t>(place));
    }

    /// Replaces all entries. Walks end.
    void assign(std::vector<T*> items) {
        touch();
        m_items = std::move(items);
        m_walks.end_all();
    }
    void clear() { assign({}); }

private:
    static inline std::uint64_t revisions = 0;

    std::vector<T*> m_items;
    ItemWalks m_walks;
    std::uint64_t m_revision = ++revisions;
};
