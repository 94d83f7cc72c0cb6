#pragma once

// The list in which the manager and the dialogs keep their items. It owns nothing, and can be walked while a script
// changes it under the walk: what is taken out is not visited any more, what is put in is not visited in that walk, and
// nothing is skipped or visited twice. Nothing that is done to one item costs more the more items there are: each knows
// where it stands, and one that goes from a long list leaves its place empty until half of all are.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "layout/item_walk.h"

/// Where an item stands in lists, kept by them in the item: a hint each, which is looked at before it counts.
struct ListPlaces {
    std::uint32_t hints[2] = {};
};

/// Items have `ListPlaces m_list_places`.
template <class T>
class ItemList {
public:
    /// One pass over a list. Ends early when the list is cleared, replaced or destroyed. Copies no items, so it costs
    /// nothing but its place on the stack.
    class Walk {
    public:
        enum Direction { FRONT_TO_BACK, BACK_TO_FRONT };

        Walk(ItemList& list, Direction direction) : m_list(&list), m_direction(direction) {
            m_walk.begin = list.m_front;
            m_walk.end = list.m_items.size();
            list.m_walks.enter(m_walk);
        }
        ~Walk() {
            if (!m_walk.has_list) return;
            m_list->m_walks.leave(m_walk);
            m_list->tidy();
        }
        Walk(const Walk&) = delete;
        Walk& operator=(const Walk&) = delete;

        /// The next item, or null where one was taken out. False when there is none left.
        bool next(T*& item) {
            if (m_walk.begin >= m_walk.end) return false;
            item = m_list->m_items[m_direction == FRONT_TO_BACK ? m_walk.begin++ : --m_walk.end];
            return true;
        }

        /// Where in the list the item stands that a walk to the front has given last.
        std::size_t place() const { return m_walk.end; }
        /// A walk to the front goes on with the item ahead of that place, if it has not come further yet.
        void go_on_ahead_of(std::size_t place) { m_walk.end = std::min(m_walk.end, place); }

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

    /// Of the lists that may hold one item at a time each has another number, 0 or 1.
    explicit ItemList(std::size_t number = 0) : m_number(number) {}
    /// Copies the entries; walks stay with the list that they began on.
    ItemList(const ItemList& other)
        : m_number(other.m_number), m_items(other.m_items), m_front(other.m_front), m_gaps(other.m_gaps) {}
    ItemList& operator=(const ItemList& other) {
        if (this != &other) assign(std::vector<T*>(other.m_items));
        return *this;
    }
    ~ItemList() = default;

    /// Another one after each change; no two lists have the same.
    std::uint64_t revision() const { return m_revision; }
    /// Something that others know of the items has changed.
    void touch() { m_revision = ++revisions; }

    bool empty() const { return size() == 0; }
    std::size_t size() const { return m_items.size() - m_front - m_gaps; }
    /// Null if there is none.
    T* front() const { return first_item(begin(), end()); }
    T* back() const { return first_item(rbegin(), rend()); }

    /// Of the item that begin() gives. Those behind it follow one by one.
    std::size_t first_place() const { return m_front; }
    /// Plain iteration, for passes in which nothing can change the list. Gives null where an item was taken out.
    auto begin() const { return m_items.begin() + static_cast<std::ptrdiff_t>(m_front); }
    auto end() const { return m_items.end(); }
    auto rbegin() const { return m_items.rbegin(); }
    auto rend() const { return m_items.rend() - static_cast<std::ptrdiff_t>(m_front); }

    /// The item need not be alive.
    bool contains(const T* item) const { return item && std::find(begin(), end(), item) != end(); }

    /// Null is passed over.
    void push_back(T* item) {
        if (!item) return;
        m_items.push_back(item);
        touch();
        note_place(m_items.size() - 1);
    }
    void push_front(T* item) {
        if (!item) return;
        if (m_front == 0) make_room_at_front();
        touch();
        m_items[--m_front] = item;
        note_place(m_front);
    }

    /// Takes the item out, wherever it stands. Asks for no memory.
    void remove(const T* item) {
        const std::size_t place = item ? place_of(*item) : m_items.size();
        if (place == m_items.size()) return;
        touch();
        m_items[place] = nullptr;
        ++m_gaps;
        tidy();
    }

    /// Replaces all entries. Walks end.
    void assign(std::vector<T*> items) {
        m_items = std::move(items);
        m_front = 0;
        m_walks.end_all();
        close_gaps();
    }
    void clear() { assign({}); }

private:
    static inline std::uint64_t revisions = 0;
    static constexpr std::size_t few = 32;

    template <class Iterator>
    static T* first_item(Iterator at, Iterator end) {
        const auto found = std::find_if(at, end, [](const T* item) { return item != nullptr; });
        return found == end ? nullptr : *found;
    }

    void note_place(std::size_t place) {
        m_items[place]->m_list_places.hints[m_number] = static_cast<std::uint32_t>(place);
    }

    // The number of all places for an item that is not here. Looks from the back where the hint is of no use.
    std::size_t place_of(const T& item) const {
        const std::size_t hint = item.m_list_places.hints[m_number];
        if (hint < m_items.size() && m_items[hint] == &item) return hint;
        for (std::size_t place = m_items.size(); place > m_front; --place) {
            if (m_items[place - 1] == &item) return place - 1;
        }
        return m_items.size();
    }

    // Closing them each time costs more than it saves only in a long list.
    void tidy() {
        const bool is_short = m_items.size() - m_front <= few;
        if (m_gaps > 0 && (is_short || m_gaps > size()) && m_walks.none()) close_gaps();
    }

    // There is no walk.
    void close_gaps() {
        touch();
        std::size_t to = m_front;
        for (std::size_t from = m_front; from < m_items.size(); ++from) {
            if (!m_items[from]) continue;
            m_items[to] = m_items[from];
            note_place(to++);
        }
        m_items.resize(to);
        m_gaps = 0;
    }

    // As much as there are items, so that it happens seldom.
    void make_room_at_front() {
        const std::size_t room = size() + few;
        m_items.insert(m_items.begin(), room, nullptr);
        m_front = room;
        m_walks.moved_back(room);
        for (std::size_t place = m_front; place < m_items.size(); ++place) {
            if (m_items[place]) note_place(place);
        }
    }

    std::size_t m_number;
    // Null where there is no item: ahead of the front, and in the gaps behind it.
    std::vector<T*> m_items;
    std::size_t m_front = 0;
    std::size_t m_gaps = 0;
    ItemWalks m_walks;
    std::uint64_t m_revision = ++revisions;
};
