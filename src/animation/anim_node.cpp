#include "animation/anim_node.h"

#include <iterator>

#include "animation/animated_item.h"
#include "animation/interpolation.h"
#include "animation/node_order.h"
#include "layout/anchors.h"
#include "module/boundary.h"

CSimpleGUIAnimNode::CSimpleGUIAnimNode(const CGuid& item_id, CSimpleGUIManager* manager)
    : CAnimNodeBase(static_cast<EAnimNodeType>(ANIM_NODE_TYPE_GUI), item_id), m_manager(manager) {
    for (NodeOrder* order : {&node_orders.steps, &node_orders.rescalings}) {
        order->reserve(m_manager->m_anim_nodes.size() + 1);
    }
    m_manager->m_anim_nodes.push_back(this);
}

CSimpleGUIAnimNode::~CSimpleGUIAnimNode() {
    for (NodeOrder* order : {&node_orders.steps, &node_orders.rescalings}) order->forget();
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

void CSimpleGUIAnimNode::animate(const SAnimateContext& context) try {
    approach_next_steps();
    step_to(context);
    // A copy: what the engine does with a new visibility may set off another step.
    const StepKeys keys = m_step.keys;

    IActor* actor = m_manager->get_system()->m_scene_manager->search_actor_by_guid(get_internal_item_id());
    m_step.actor = actor;
    go_on_to_next_steps();
    if (!actor) return;
    m_step.item = actor->get_item();
    AnimatedItem item = animated_item(*m_manager, actor);
    if (item.shape && !item.has_frame) return;
    if (const SGuiVisible* visible = keys.visibles.first()) {
        actor->set_visible(visible->m_visible != 0);
    } else {
        actor->set_visible(actor->is_visible());
    }
    if (!item.exists()) return;

    const float moment = context.m_time;
    const bool sorted = m_step.known_since == track_changes;
    const int align = alignment_at(m_align_track, keys.aligns, moment, item.alignment(), sorted);
    VEC2 offset = item.offset();
    if (!keys.offsets.none()) {
        offset = offset_at(keys.offsets, keys.aligns, align, moment, item.frame, *m_manager);
    } else if (align == ALIGN_SCALE) {
        offset = m_manager->get_offset_by_percent(item.near_fractions(), actor);
    }
    const VEC2 size = keys.sizes.none() ? item.size() : mixed_field(keys.sizes, moment, &SGuiSize::m_size);
    item.set_alignment(align);
    item.set_rect(rect_of_key(offset, size, align, item.frame));
    if (item.shape && !keys.colors.none()) item.shape->m_color = mixed_field(keys.colors, moment, &SGuiColor::m_color);
} catch (...) {
    keep_inside(L"node: animate");
}
