// Keys from what an item is at the moment.

#include <algorithm>

#include "animation/anim_node.h"
#include "animation/animated_item.h"
#include "animation/near_keys.h"
#include "layout/anchors.h"
#include "module/boundary.h"

namespace {

// An item's state in the terms of keys.
struct State {
    VEC2 offset;
    VEC2 offset_percent;
    VEC2 size;
    VEC2 size_percent;
    int align = 0;
};

State state_of(const CSimpleGUIManager& manager, const AnimatedItem& item, IActor* actor) {
    if (!item.has_frame) return {};
    State state;
    state.align = item.alignment();
    if (item.scale_mode()) {
        state.offset_percent = item.near_fractions();
        state.size_percent = item.far_fractions() - item.near_fractions();
        state.offset = manager.get_offset_by_percent(state.offset_percent, actor);
        state.size = manager.get_size_by_percent(state.size_percent, actor);
    } else {
        state.offset = item.offset();
        state.size = item.size();
        state.offset_percent = manager.get_percent_offset_by_pixel(state.offset, actor);
        state.size_percent = manager.get_percent_size_by_pixel(state.size, actor);
    }
    return state;
}

// The key at the moment, made if there is none; null if the track is missing. It may be an older key that lies near.
// Without the memory for one `all_made` becomes false.
template <class Key>
Key* made_key(ITrack* track, float time, bool& all_made) {
    if (!track_of<Key>(track)) return nullptr;
    const int count = track->get_key_count();
    track->create_key(time, false);
    Key* key = key_at<Key>(track, time);
    // A key at a time that is no number is made, and found by nobody.
    if (!key && track->get_key_count() == count) all_made = false;
    return key;
}

}  // namespace

void CSimpleGUIAnimNode::forget_lost_tracks() {
    const std::vector<ITrack*>& tracks = get_tracklist();
    for (ITrack** track : {&m_offset_track, &m_size_track, &m_visible_track, &m_align_track, &m_color_track}) {
        if (std::find(tracks.begin(), tracks.end(), *track) == tracks.end()) *track = nullptr;
    }
}

bool CSimpleGUIAnimNode::record_key(const SAnimateContext& context) try {
    forget_lost_tracks();
    IActor* actor = m_manager->get_system()->m_scene_manager->search_actor_by_guid(get_internal_item_id());
    const AnimatedItem item = animated_item(*m_manager, actor);
    if (!item.exists()) return false;
    const float time = context.m_time;
    bool all_made = true;
    auto* offset = made_key<SGuiOffset>(m_offset_track, time, all_made);
    auto* size = made_key<SGuiSize>(m_size_track, time, all_made);
    auto* visible = made_key<SGuiVisible>(m_visible_track, time, all_made);
    auto* align = made_key<SGuiAlign>(m_align_track, time, all_made);
    const State state = state_of(*m_manager, item, actor);
    // A dialog has no colour of its own.
    if (item.shape && item.has_frame) {
        if (auto* color = made_key<SGuiColor>(m_color_track, time, all_made)) color->m_color = item.shape->m_color;
    }
    if (offset) {
        offset->m_offset = state.offset;
        offset->m_offset_percent = state.offset_percent;
    }
    if (size) {
        size->m_size = state.size;
        size->m_size_percent = state.size_percent;
    }
    if (visible) visible->m_visible = actor->is_visible() ? 1 : 0;
    if (align) align->m_align = state.align;
    for (ITrack* track : {m_offset_track, m_size_track, m_align_track, m_visible_track, m_color_track}) {
        if (track) track->update_keys();
    }
    return all_made;
} catch (...) {
    keep_inside(L"node: record_key");
    return false;
}
