#include "animation/track.h"

#include <algorithm>

#include "layout/persisted_value.h"

template <class T>
TBaseTrack<T>::~TBaseTrack() {
    for (IKey* key : m_keys) delete key;
}

template <class T>
bool TBaseTrack<T>::is_at(const IKey& key, float time) const {
    return key.m_time - m_time_tolerance < time && time < key.m_time + m_time_tolerance;
}

template <class T>
void TBaseTrack<T>::save_to_node(pack_node* node, const save_operation& operation) {
    IBaseItem::save_to_node(node, operation);
    node->add_property("type", PAK_INT, &m_track_type);
    pack_node* keys = node->add_child("keys");
    if (!keys) return;
    for (IKey* key : m_keys) {
        pack_node* child = key ? keys->add_child("child") : nullptr;
        if (child) key->save_to_node(child, operation);
    }
}

template <class T>
void TBaseTrack<T>::on_parse(pack_node* node, const load_operation& operation) {
    IBaseItem::on_parse(node, operation);
    node->get_property("type", PAK_INT, &m_track_type);
    pack_node* keys = node->find_child("keys");
    if (!keys) return;
    for (pack_node* child : *keys->get_children()) {
        float time = 0.0f;
        read_value(child, "time", PAK_FLOAT, &time);
        create_key(time, true);
        m_keys.back()->on_parse(child, operation);
    }
    sort_keys();
    update_keys();
    smooth();
}

template <class T>
bool TBaseTrack<T>::create_key(float time, bool append) {
    IKey* key = new T(time);
    return append ? append_key(key) : insert_key(key);
}

template <class T>
bool TBaseTrack<T>::insert_key(IKey* key) {
    if (!key) return false;
    const float time = key->m_time;
    if (m_keys.size() < 2) {
        // A second key may lie as near to the only one as it likes.
        const bool behind = !m_keys.empty() && !(time < m_keys.front()->m_time);
        m_keys.insert(behind ? m_keys.end() : m_keys.begin(), key);
        return false;
    }
    const auto place = std::find_if(m_keys.begin(), m_keys.end(),
                                    [&](const IKey* other) { return time < other->m_time + m_time_tolerance; });
    if (place != m_keys.end() && time > (*place)->m_time - m_time_tolerance) {
        delete key;
        return false;
    }
    m_keys.insert(place, key);
    return false;
}

template <class T>
void TBaseTrack<T>::remove_key(float time) {
    const auto found = std::find_if(m_keys.begin(), m_keys.end(), [&](const IKey* key) { return is_at(*key, time); });
    if (found == m_keys.end()) return;
    delete *found;
    m_keys.erase(found);
}

template <class T>
IKey* TBaseTrack<T>::find_key(float time) {
    const auto found = std::find_if(m_keys.rbegin(), m_keys.rend(), [&](const IKey* key) { return is_at(*key, time); });
    return found == m_keys.rend() ? nullptr : *found;
}

template <class T>
void TBaseTrack<T>::get_value(float, tstringW&) {}

template <class T>
void TBaseTrack<T>::sort_keys() {
    std::stable_sort(m_keys.begin(), m_keys.end(), [](const IKey* a, const IKey* b) { return a->m_time < b->m_time; });
}

template <class T>
void TBaseTrack<T>::update_keys() {}

template <class T>
bool TBaseTrack<T>::append_key(IKey* key) {
    if (!key) return false;
    m_keys.push_back(key);
    return true;
}

template <class T>
IKey* TBaseTrack<T>::find_key_before(float time) {
    const auto found =
        std::find_if(m_keys.rbegin(), m_keys.rend(), [&](const IKey* key) { return key->m_time < time; });
    return found == m_keys.rend() ? nullptr : *found;
}

template <class T>
void TBaseTrack<T>::get_near_keys(const SAnimateContext& context, IKey*& before, IKey*& after) {
    before = nullptr;
    after = nullptr;
    const float time = context.m_time;
    if (context.m_speed < 0.0f) {
        for (IKey* key : m_keys) {
            if (time < key->m_time) {
                after = key;
                return;
            }
            before = key;
        }
        return;
    }
    for (auto at = m_keys.rbegin(); at != m_keys.rend(); ++at) {
        if (time > (*at)->m_time) {
            before = *at;
            return;
        }
        after = *at;
    }
}

template class TBaseTrack<SGuiOffset>;
template class TBaseTrack<SGuiSize>;
template class TBaseTrack<SGuiVisible>;
template class TBaseTrack<SGuiAlign>;
template class TBaseTrack<SGuiColor>;

ITrack* create_track(unsigned type) {
    for (const TrackType& row : track_types) {
        if (row.number == type) return row.create();
    }
    return nullptr;
}
