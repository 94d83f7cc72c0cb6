#include "host/core/slot_table.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <random>
#include <set>

#include "host/core/pointer_set.h"

using host::SlotTable;

// Hashes that begin at the same few slots, the last ones among them, so that runs of slots meet and go round the end.
TEST(SlotTable, FindsWhatIsInItThroughEveryChange) {
    std::mt19937 random(5);
    SlotTable table;
    std::map<SlotTable::Place, std::uint64_t> in_it;
    for (int step = 0; step < 20000; ++step) {
        const auto place = static_cast<SlotTable::Place>(random() % 200);
        const auto known = in_it.find(place);
        // Fuller and emptier in turn.
        const bool is_filling = step / 1000 % 2 == 0;
        if (known != in_it.end() && (!is_filling || random() % 4 == 0)) {
            table.erase({place, SlotTable::tag_of(known->second)});
            in_it.erase(known);
        } else if (known == in_it.end() && (is_filling || random() % 4 == 0)) {
            const std::uint64_t hash = std::uint64_t{random() % 2} << 40 | random() % 5 << 30 | (random() % 8 - 4u);
            table.make_room_for_one();
            table.put({place, SlotTable::tag_of(hash)});
            in_it.emplace(place, hash);
        }
        const auto wanted = static_cast<SlotTable::Place>(random() % 200);
        const auto there = in_it.find(wanted);
        const std::uint64_t hash = there != in_it.end() ? there->second : random() % 8;
        const SlotTable::Place found = table.find(hash, [wanted](SlotTable::Place at) { return at == wanted; });
        ASSERT_EQ(found, there != in_it.end() ? wanted : SlotTable::none) << step;
    }
}

// Full as far as it goes, so that runs of slots meet and go round the end.
TEST(PointerSet, KnowsWhatIsInItThroughEveryChange) {
    std::mt19937 random(6);
    const std::array<int, 200> objects{};
    host::PointerSet<int> known;
    std::set<const int*> in_it;
    EXPECT_FALSE(known.contains(&objects[0]));
    for (int step = 0; step < 20000; ++step) {
        const int* const object = &objects[random() % objects.size()];
        const bool is_filling = step / 1000 % 2 == 0;
        if (random() % 8 == 0 || (!is_filling && random() % 2 == 0)) {
            known.erase(object);
            in_it.erase(object);
        } else if (is_filling && in_it.insert(object).second) {
            known.insert(object);
        }
        const int* const wanted = &objects[random() % objects.size()];
        ASSERT_EQ(known.contains(wanted), in_it.contains(wanted)) << step;
    }
    EXPECT_FALSE(known.contains(nullptr));
}
