#pragma once

#include <typeinfo>

#include "animation/interpolation.h"
#include "animation/track.h"

/// The keys of one kind around a moment; either may be null.
template <class Key>
struct NearKeys {
    const Key* before = nullptr;
    const Key* after = nullptr;

    /// The earlier of them, or null if there are none.
    const Key* first() const { return before ? before : after; }
    bool both() const { return before && after; }
    bool none() const { return !before && !after; }

    /// Whether two neighbours of a sorted track are still those around the moment; null stands for the track's end.
    bool are_around(const SAnimateContext& context) const {
        const float time = context.m_time;
        if (context.m_speed < 0.0f)
            return (!before || !(time < before->get_time())) && (!after || time < after->get_time());
        return (!before || time > before->get_time()) && (!after || !(time > after->get_time()));
    }
};

/// The track as one of that kind of key, or null. A file can store any number as a track's type, so the number alone
/// does not say of which class the track is. Asked for each track at each step; comparing classes is the quickest way.
template <class Key>
TBaseTrack<Key>* track_of(ITrack* track) {
    return track && typeid(*track) == typeid(TBaseTrack<Key>) ? static_cast<TBaseTrack<Key>*>(track) : nullptr;
}

/// None without a track.
template <class Key>
NearKeys<Key> near_keys(TBaseTrack<Key>* track, const SAnimateContext& context) {
    if (!track) return {};
    IKey* before = nullptr;
    IKey* after = nullptr;
    track->get_near_keys(context, before, after);
    return {static_cast<Key*>(before), static_cast<Key*>(after)};
}

template <class Key>
NearKeys<Key> near_keys(ITrack* any_track, const SAnimateContext& context) {
    return near_keys(track_of<Key>(any_track), context);
}

/// The same, for who has a place for them.
template <class Key>
void find_near_keys(ITrack* any_track, const SAnimateContext& context, NearKeys<Key>& keys) {
    keys = near_keys<Key>(any_track, context);
}

template <class Key>
Key* key_at(ITrack* any_track, float time) {
    TBaseTrack<Key>* track = track_of<Key>(any_track);
    return track ? static_cast<Key*>(track->find_key(time)) : nullptr;
}

/// The value of one field at a moment: between two keys their mixture, with one key its value. There is a key.
template <class Key, class Value>
Value mixed_field(const NearKeys<Key>& keys, float moment, Value Key::*field) {
    if (!keys.both()) return keys.first()->*field;
    return mixed(keys.before->*field, keys.after->*field,
                 place_in_time(moment, keys.before->get_time(), keys.after->get_time()));
}

/// The alignment at a moment, which steps; a key at the moment rules already. `near` are the keys around it. Without
/// keys `otherwise`.
inline int alignment_at(ITrack* track, const NearKeys<SGuiAlign>& near, float moment, int otherwise,
                        bool is_sorted = false) {
    // In a sorted track a key at the moment is the earlier of them, unless the later one reaches back to it.
    const bool is_first = is_sorted && (!near.after || near.after->get_time() - time_tolerance >= moment);
    const SGuiAlign* key = near.none() || is_first ? nullptr : key_at<SGuiAlign>(track, moment);
    if (!key) key = near.first();
    return key ? key->m_align : otherwise;
}
