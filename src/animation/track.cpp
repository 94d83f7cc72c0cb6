#include "animation/track.h"

#include <algorithm>
#include <memory>

#include "layout/persisted_value.h"
#include "module/boundary.h"

template <class T>
TBaseTrack<T>::~TBaseTrack() {
    ++track_changes;
    for (IKey* key : m_keys) delete key;
}

template <class T>
bool TBaseTrack<T>::is_at(const IKey& key, float time) const {
    return key.m_time - m_time_tolerance < time && time < key.m_time + m_time_tolerance;
}

template <class T>
void TBaseTrack<T>::save_to_node(pack_node* node, const save_operation& operation) try {
    IBaseItem::save_to_node(node, operation);
    node->add_property("type", PAK_INT, &m_track_type);
    pack_node* keys = node->add_child("keys");
    if (!keys) return;
    for (IKey* key : m_keys) {
        pack_node* child = key ? keys->add_child("child") : nullptr;
        if (child) key->save_to_node(child, operation);
    }
} catch (...) {
    keep_inside(L"track: save_to_node");
}

template <class T>
void TBaseTrack<T>::on_parse(pack_node* node, const load_operation& operation) try {
    IBaseItem::on_parse(node, operation);
    int type = m_track_type;
    node->get_property("type", PAK_INT, &type);
    set_track_type(type);
    pack_node* keys = node->find_child("keys");
    if (!keys) return;
    for (pack_node* child : *keys->get_children()) {
        float time = 0.0f;
        read_value(child, "time", PAK_FLOAT, &time);
        place_key(this->keys().size(), new T(time));
        m_keys.back()->on_parse(child, operation);
    }
    sort_keys();
    update_keys();
    smooth();
} catch (...) {
    keep_inside(L"track: on_parse");
}

template <class T>
bool TBaseTrack<T>::create_key(float time, bool append) try {
    IKey* key = new T(time);
    return append ? append_key(key) : insert_key(key);
} catch (...) {
    keep_inside(L"track: create_key");
    return false;
}

template <class T>
void TBaseTrack<T>::note_order() {
    ++track_changes;
    // Times that are no numbers are in no order either.
    const auto descends = [](const IKey* a, const IKey* b) { return !(a->m_time <= b->m_time); };
    m_sorted = std::adjacent_find(m_keys.begin(), m_keys.end(), descends) == m_keys.end();
}

template <class T>
const std::vector<IKey*>& TBaseTrack<T>::keys() {
    if (m_lent) std::erase(m_keys, nullptr);
    return m_keys;
}

// A moment in a sorted track is found by halving. A track can be in any order while it is read or edited, and then the
// walk decides which of several keys is meant.

// The place of the first key of a sorted track of which `holds` is false. There is one such place, so that a look at
// the last one found, or the one behind it, may answer.
template <class T>
template <class Condition>
std::size_t TBaseTrack<T>::halved(Condition holds) {
    const std::size_t size = m_keys.size();
    for (std::size_t place = m_last_place; place <= size && place <= m_last_place + 1; ++place) {
        if ((place == 0 || holds(m_keys[place - 1])) && (place == size || !holds(m_keys[place])))
            return m_last_place = place;
    }
    const auto found = std::partition_point(m_keys.begin(), m_keys.end(), holds);
    return m_last_place = static_cast<std::size_t>(found - m_keys.begin());
}

template <class T>
template <class Condition>
std::size_t TBaseTrack<T>::first_with(Condition condition) {
    const auto fails = [&](const IKey* key) { return !condition(*key); };
    if (is_searchable()) return halved(fails);
    const auto& walked = keys();
    return static_cast<std::size_t>(std::find_if_not(walked.begin(), walked.end(), fails) - walked.begin());
}

template <class T>
template <class Condition>
std::size_t TBaseTrack<T>::behind_last_with(Condition condition) {
    const auto holds = [&](const IKey* key) { return condition(*key); };
    if (is_searchable()) return halved(holds);
    const auto& walked = keys();
    return static_cast<std::size_t>(std::find_if(walked.rbegin(), walked.rend(), holds).base() - walked.begin());
}

template <class T>
void TBaseTrack<T>::place_key(std::size_t place, IKey* key) {
    ++track_changes;
    const bool follows = place == 0 || m_keys[place - 1]->m_time <= key->m_time;
    const bool precedes = place == m_keys.size() || key->m_time <= m_keys[place]->m_time;
    std::unique_ptr<IKey> held(key);
    m_keys.insert(m_keys.begin() + static_cast<std::ptrdiff_t>(place), key);
    (void)held.release();
    m_sorted = m_sorted && follows && precedes;
}

template <class T>
bool TBaseTrack<T>::insert_key(IKey* key) try {
    if (!key) return false;
    const float time = key->m_time;
    if (keys().size() < 2) {
        // A second key may lie as near to the only one as it likes.
        const bool behind = !m_keys.empty() && !(time < m_keys.front()->m_time);
        place_key(behind ? 1 : 0, key);
        return false;
    }
    const std::size_t place = first_with([&](const IKey& other) { return time < other.m_time + m_time_tolerance; });
    if (place < m_keys.size() && time > m_keys[place]->m_time - m_time_tolerance) {
        delete key;
        return false;
    }
    place_key(place, key);
    return false;
} catch (...) {
    keep_inside(L"track: insert_key");
    return false;
}

template <class T>
void TBaseTrack<T>::remove_key(float time) {
    const std::size_t place = first_with(
        [&](const IKey& key) { return is_searchable() ? time < key.m_time + m_time_tolerance : is_at(key, time); });
    if (place == m_keys.size() || !is_at(*m_keys[place], time)) return;
    ++track_changes;
    delete m_keys[place];
    m_keys.erase(m_keys.begin() + static_cast<std::ptrdiff_t>(place));
}

template <class T>
IKey* TBaseTrack<T>::find_key(float time) {
    // In a sorted track only the last key that reaches back to the moment can be the last one at it.
    const std::size_t behind = behind_last_with(
        [&](const IKey& key) { return is_searchable() ? key.m_time - m_time_tolerance < time : is_at(key, time); });
    return behind > 0 && is_at(*m_keys[behind - 1], time) ? m_keys[behind - 1] : nullptr;
}

template <class T>
void TBaseTrack<T>::get_value(float, tstringW&) {}

template <class T>
void TBaseTrack<T>::sort_keys() {
    keys();
    std::stable_sort(m_keys.begin(), m_keys.end(), [](const IKey* a, const IKey* b) { return a->m_time < b->m_time; });
    note_order();
}

template <class T>
bool TBaseTrack<T>::append_key(IKey* key) try {
    if (!key) return false;
    place_key(keys().size(), key);
    return true;
} catch (...) {
    keep_inside(L"track: append_key");
    return false;
}

template <class T>
IKey* TBaseTrack<T>::find_key_before(float time) {
    const std::size_t behind = behind_last_with([&](const IKey& key) { return key.m_time < time; });
    return behind > 0 ? m_keys[behind - 1] : nullptr;
}

template <class T>
void TBaseTrack<T>::get_near_keys(const SAnimateContext& context, IKey*& before, IKey*& after) {
    const float time = context.m_time;
    // A key at the moment is the one that play is about to reach.
    const std::size_t place = context.m_speed < 0.0f
                                  ? first_with([&](const IKey& key) { return time < key.m_time; })
                                  : behind_last_with([&](const IKey& key) { return time > key.m_time; });
    before = place > 0 ? m_keys[place - 1] : nullptr;
    after = place < m_keys.size() ? m_keys[place] : nullptr;
}

template class TBaseTrack<SGuiOffset>;
template class TBaseTrack<SGuiSize>;
template class TBaseTrack<SGuiVisible>;
template class TBaseTrack<SGuiAlign>;
template class TBaseTrack<SGuiColor>;

ITrack* create_track(unsigned type) try {
    for (const TrackType& row : track_types) {
        if (row.number == type) return row.create();
    }
    return nullptr;
} catch (...) {
    keep_inside(L"a track");
    return nullptr;
}
