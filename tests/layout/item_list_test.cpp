#include "layout/item_list.h"

#include <gtest/gtest.h>

#include <list>
#include <memory>
#include <random>

namespace {

struct Item {
    ListPlaces m_list_places;
};
using List = ItemList<Item>;
using Direction = List::Walk::Direction;

// The plain model: entries know whether they are still to be visited, and nothing counts places.
struct Entry {
    Item* item;
    bool pending;
};

// One walk over a list that changes at random on the way, beside the same walk over the model.
class RandomWalk {
public:
    RandomWalk(unsigned seed, Direction direction) : m_random(seed), m_direction(direction) {
        for (int count = pick(pick(4) ? 8 : 100); count > 0; --count) add(true, pick(2) == 0);
    }

    void run() {
        List::Walk walk(m_list, m_direction);
        const auto inner = pick(2) ? std::make_unique<List::Walk>(m_list, Direction::FRONT_TO_BACK) : nullptr;
        Item* item = nullptr;
        while (walk.next(item)) {
            if (!item) continue;
            const auto expected = next_pending();
            ASSERT_NE(expected, m_model.end());
            ASSERT_EQ(item, expected->item);
            expected->pending = false;
            for (int changes = pick(pick(4) ? 4 : 40); changes > 0; --changes) change(item);
        }
        ASSERT_EQ(next_pending(), m_model.end());
        ASSERT_EQ(m_list.size(), m_model.size());
        std::vector<Item*> expected;
        for (const Entry& entry : m_model) expected.push_back(entry.item);
        ASSERT_EQ(without_gaps(m_list.begin(), m_list.end()), expected);
        std::reverse(expected.begin(), expected.end());
        ASSERT_EQ(without_gaps(m_list.rbegin(), m_list.rend()), expected);
        ASSERT_EQ(m_list.back(), expected.empty() ? nullptr : expected.front());
        ASSERT_EQ(m_list.front(), expected.empty() ? nullptr : expected.back());
    }

private:
    int pick(int below) { return static_cast<int>(m_random() % static_cast<unsigned>(below)); }

    template <class Iterator>
    static std::vector<Item*> without_gaps(Iterator at, Iterator end) {
        std::vector<Item*> items(at, end);
        std::erase(items, nullptr);
        return items;
    }

    std::list<Entry>::iterator next_pending() {
        auto found = m_model.end();
        for (auto at = m_model.begin(); at != m_model.end(); ++at) {
            if (!at->pending) continue;
            found = at;
            if (m_direction == Direction::FRONT_TO_BACK) break;
        }
        return found;
    }

    void add(bool pending, bool front) {
        m_items.push_back(std::make_unique<Item>());
        put(m_items.back().get(), pending, front);
    }

    void put(Item* item, bool pending, bool front) {
        front ? m_list.push_front(item) : m_list.push_back(item);
        m_model.insert(front ? m_model.begin() : m_model.end(), {item, pending});
    }

    void change(const Item* current) {
        switch (pick(8)) {
            case 0:
                return add(false, true);
            case 1:
                return add(false, false);
            case 2:
                return remove(current);
            case 3:
                if (pick(20) == 0) {
                    m_list.clear();
                    m_model.clear();
                }
                return;
            default:
                if (m_items.empty()) return;
                Item* const any = m_items[static_cast<std::size_t>(pick(static_cast<int>(m_items.size())))].get();
                // Those that are in other lists too know their places there instead.
                if (pick(4) == 0) any->m_list_places.hints[0] = static_cast<std::uint32_t>(pick(200));
                remove(any);
                if (pick(3) == 0) put(any, false, pick(2) == 0);
        }
    }

    void remove(const Item* item) {
        m_list.remove(item);
        m_model.remove_if([&](const Entry& entry) { return entry.item == item; });
    }

    std::mt19937 m_random;
    Direction m_direction;
    List m_list;
    std::list<Entry> m_model;
    std::vector<std::unique_ptr<Item>> m_items;
};

}  // namespace

TEST(ItemList, WalkVisitsEachItemOnceWhateverChangesOnTheWay) {
    for (unsigned seed = 0; seed < 4000; ++seed) {
        SCOPED_TRACE(seed);
        RandomWalk(seed, Direction::FRONT_TO_BACK).run();
        RandomWalk(seed, Direction::BACK_TO_FRONT).run();
        if (HasFatalFailure()) return;
    }
}

TEST(ItemList, WalkSurvivesItsList) {
    auto list = std::make_unique<List>();
    Item a;
    list->push_back(&a);
    List::Walk outer(*list, Direction::BACK_TO_FRONT);
    List::Walk inner(*list, Direction::FRONT_TO_BACK);
    list.reset();
    Item* item = nullptr;
    EXPECT_FALSE(outer.next(item));
    EXPECT_FALSE(inner.next(item));
}

TEST(ItemList, CopyTakesTheItemsAndLeavesTheWalks) {
    Item a;
    Item b;
    List list;
    list.push_back(&a);
    list.push_back(&b);
    List::Walk walk(list, Direction::FRONT_TO_BACK);
    Item* item = nullptr;
    {
        List copy(list);
        copy.clear();
    }
    EXPECT_TRUE(walk.next(item));
    list = List();
    EXPECT_FALSE(walk.next(item));
    EXPECT_TRUE(list.empty());
}
