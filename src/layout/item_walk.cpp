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

void ItemWalks::inserted_at_front() {
    for (ItemWalk* walk = m_innermost; walk; walk = walk->outer) {
        ++walk->begin;
        ++walk->end;
    }
}

void ItemWalks::removed(std::size_t place) {
    for (ItemWalk* walk = m_innermost; walk; walk = walk->outer) {
        if (place < walk->begin) --walk->begin;
        if (place < walk->end) --walk->end;
    }
}

void ItemWalks::end_all() {
    for (ItemWalk* walk = m_innermost; walk; walk = walk->outer) walk->begin = walk->end = 0;
}
