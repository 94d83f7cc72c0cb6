#include "layout/item_walk.h"

ItemWalks::~ItemWalks() {
    end_all();
    for (ItemWalk* walk = m_innermost; walk; walk = walk->outer) walk->has_list = false;
}

void ItemWalks::enter(ItemWalk& walk) {
    walk.outer = m_innermost;
    m_innermost = &walk;
}

void ItemWalks::leave(ItemWalk& walk) {
    if (walk.has_list) m_innermost = walk.outer;
}

void ItemWalks::moved_back(std::size_t places) {
    for (ItemWalk* walk = m_innermost; walk; walk = walk->outer) {
        walk->begin += places;
        walk->end += places;
    }
}

void ItemWalks::end_all() {
    for (ItemWalk* walk = m_innermost; walk; walk = walk->outer) walk->begin = walk->end = 0;
}
