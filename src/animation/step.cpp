// How a step of all animations finds its keys. It reads little of each node, but there are thousands of them: so it
// looks first where the last one ended, and has what comes next fetched while it works.

#include <algorithm>
#include <iterator>

#include "animation/anim_node.h"
#include "animation/node_order.h"
#include "layout/shape.h"
#include "module/manager.h"

namespace {

// In nodes: from so far ahead a node is fetched, and then what it points to.
constexpr std::size_t far_node = 5;
constexpr std::size_t near_node = 2;

template <class Key>
void fetch_keys(const NearKeys<Key>& keys) {
    fetch(keys.before);
    fetch(keys.after);
    // A key may reach into another line; neighbours often lie side by side.
    if (keys.after) fetch(keys.after + 1);
}

template <class Key>
bool is_searchable(ITrack* any_track) {
    const TBaseTrack<Key>* track = track_of<Key>(any_track);
    return track && track->is_searchable();
}

}  // namespace

void CSimpleGUIAnimNode::approach_next_steps() {
    NodeOrder& order = node_orders.steps;
    order.enter(this);
    if (const CSimpleGUIAnimNode* node = order.ahead(far_node)) fetch_all(node, sizeof *node);
    const CSimpleGUIAnimNode* node = order.ahead(near_node);
    if (!node) return;
    const StepKeys& keys = node->m_step.keys;
    fetch(node->m_tracks.data());
    fetch_keys(keys.offsets);
    fetch_keys(keys.sizes);
    fetch_keys(keys.visibles);
}

void CSimpleGUIAnimNode::go_on_to_next_steps() {
    const CSimpleGUIAnimNode* node = node_orders.steps.ahead(near_node);
    if (!node) return;
    const Step& step = node->m_step;
    fetch_keys(step.keys.aligns);
    fetch_keys(step.keys.colors);
    // The class is the engine's. What a step asks an actor for lies in its first lines as a rule.
    fetch_all(step.actor, 2 * cache_line);
    fetch_all(step.item, sizeof(CSimpleGUIShape));
}

// One pass over the tracks; of two of one type the first counts, as for get_track.
void CSimpleGUIAnimNode::find_tracks() {
    ITrack** const places[] = {&m_offset_track, &m_size_track, &m_visible_track, &m_align_track, &m_color_track};
    static_assert(std::size(places) == std::size(track_types));
    for (ITrack** place : places) *place = nullptr;
    for (ITrack* track : m_tracks) {
        // A type below the first wraps around to a great number.
        const unsigned place = static_cast<unsigned>(track->get_track_type()) - TRACK_TYPE_OFFSET;
        if (place < std::size(places) && !*places[place]) *places[place] = track;
    }
}

// The engine can change the list of tracks without a word, so it is compared.
bool CSimpleGUIAnimNode::knows_neighbours() const {
    ITrack* const known[] = {m_offset_track, m_size_track, m_visible_track, m_align_track, m_color_track};
    return m_step.known_since == track_changes && std::ranges::equal(m_tracks, known);
}

void CSimpleGUIAnimNode::step_to(const SAnimateContext& context) {
    const bool known = knows_neighbours();
    if (!known) find_tracks();
    const auto step = [&](ITrack* track, auto& keys) {
        if (!known || !keys.are_around(context)) find_near_keys(track, context, keys);
    };
    step(m_offset_track, m_step.keys.offsets);
    step(m_size_track, m_step.keys.sizes);
    step(m_visible_track, m_step.keys.visibles);
    step(m_align_track, m_step.keys.aligns);
    step(m_color_track, m_step.keys.colors);
    if (known) return;
    const bool searchable = is_searchable<SGuiOffset>(m_offset_track) && is_searchable<SGuiSize>(m_size_track) &&
                            is_searchable<SGuiVisible>(m_visible_track) && is_searchable<SGuiAlign>(m_align_track) &&
                            is_searchable<SGuiColor>(m_color_track);
    m_step.known_since = searchable ? track_changes : 0;
}
