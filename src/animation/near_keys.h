#pragma once

#include "animation/track.h"

/// The keys of one kind around a moment; either may be null.
template <class Key>
struct NearKeys {
    const Key* before = nullptr;
    const Key* after = nullptr;

    /// The only key there is, or null if there are none or two.
    const Key* only() const { return before && after ? nullptr : (before ? before : after); }
    const Key* first() const { return before ? before : after; }
    bool both() const { return before && after; }
    bool none() const { return !before && !after; }
};

/// The track as one of that kind of key, or null. A file can store any number as a track's type, so the number alone
/// does not say of which class the track is.
template <class Key>
TBaseTrack<Key>* track_of(ITrack* track) {
    return dynamic_cast<TBaseTrack<Key>*>(track);
}

template <class Key>
NearKeys<Key> near_keys(ITrack* any_track, const SAnimateContext& context) {
    TBaseTrack<Key>* track = track_of<Key>(any_track);
    if (!track) return {};
    IKey* before = nullptr;
    IKey* after = nullptr;
    track->get_near_keys(context, before, after);
    return {static_cast<Key*>(before), static_cast<Key*>(after)};
}

template <class Key>
Key* key_at(ITrack* any_track, float time) {
    TBaseTrack<Key>* track = track_of<Key>(any_track);
    return track ? static_cast<Key*>(track->find_key(time)) : nullptr;
}
