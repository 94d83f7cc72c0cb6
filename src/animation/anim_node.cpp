#include "animation/anim_node.h"

#include <iterator>

#include "animation/animated_item.h"
#include "animation/interpolation.h"
#include "animation/near_keys.h"
#include "layout/anchors.h"
#include "module/boundary.h"

CSimpleGUIAnimNode::CSimpleGUIAnimNode(const CGuid& item_id, CSimpleGUIManager* manager)
    : CAnimNodeBase(static_cast<EAnimNodeType>(ANIM_NODE_TYPE_GUI), item_id), m_manager(manager) {
    m_manager->m_anim_nodes.push_back(this);
}

CSimpleGUIAnimNode::~CSimpleGUIAnimNode() {
    if (m_manager) m_manager->m_anim_nodes.remove(this);
}

void CSimpleGUIAnimNode::create_tracks() try {
    m_offset_track = add_track(TRACK_TYPE_OFFSET);
    m_size_track = add_track(TRACK_TYPE_SIZE);
    m_visible_track = add_track(TRACK_TYPE_VISIBLE);
    m_align_track = add_track(TRACK_TYPE_ALIGN);
    m_color_track = add_track(TRACK_TYPE_COLOR);
} catch (...) {
    keep_inside(L"node: create_tracks");
}

namespace {

// Places can only be mixed when they are measured from one anchor: that of the alignment of the moment. The earlier
// key is taken to be measured from it already; the later one is from the next alignment key.
VEC2 offset_at(const NearKeys<SGuiOffset>& keys, const NearKeys<SGuiAlign>& align_keys, int align, float moment,
               const CRect& frame, const CSimpleGUIManager& manager) {
    if (!keys.both() || !align_keys.after) return mixed_field(keys, moment, &SGuiOffset::m_offset);
    const VEC2 end = manager.get_offset_of_dif_align(align, align_keys.after->m_align, frame, keys.after->m_offset);
    const float t = place_in_time(moment, keys.before->get_time(), keys.after->get_time());
    return mixed(keys.before->m_offset, end, t);
}

}  // namespace

void CSimpleGUIAnimNode::rebind_id(CGuid item_id) {
    CAnimNodeBase::rebind_id(item_id);
    if (m_manager) m_manager->m_anim_nodes.touch();
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

void CSimpleGUIAnimNode::animate(const SAnimateContext& context) try {
    find_tracks();
    const auto offsets = near_keys<SGuiOffset>(m_offset_track, context);
    const auto sizes = near_keys<SGuiSize>(m_size_track, context);
    const auto visibles = near_keys<SGuiVisible>(m_visible_track, context);
    const auto aligns = near_keys<SGuiAlign>(m_align_track, context);
    const auto colors = near_keys<SGuiColor>(m_color_track, context);

    IActor* actor = m_manager->get_system()->m_scene_manager->search_actor_by_guid(get_internal_item_id());
    if (!actor) return;
    AnimatedItem item = animated_item(*m_manager, actor);
    if (item.shape && !item.has_frame) return;
    if (const SGuiVisible* visible = visibles.first()) {
        actor->set_visible(visible->m_visible != 0);
    } else {
        actor->set_visible(actor->is_visible());
    }
    if (!item.exists()) return;

    const float moment = context.m_time;
    const int align = alignment_at(m_align_track, aligns, moment, item.alignment());
    VEC2 offset = item.offset();
    if (!offsets.none()) {
        offset = offset_at(offsets, aligns, align, moment, item.frame, *m_manager);
    } else if (align == ALIGN_SCALE) {
        offset = m_manager->get_offset_by_percent(item.near_fractions(), actor);
    }
    const VEC2 size = sizes.none() ? item.size() : mixed_field(sizes, moment, &SGuiSize::m_size);
    item.set_alignment(align);
    item.set_rect(rect_of_key(offset, size, align, item.frame));
    if (item.shape && !colors.none()) item.shape->m_color = mixed_field(colors, moment, &SGuiColor::m_color);
} catch (...) {
    keep_inside(L"node: animate");
}
