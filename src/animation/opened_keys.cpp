// The keys of a project that was just opened, brought in line with the present frames. Simpler than after a resize:
// each key by itself, under one alignment for the whole track.

#include "animation/anim_node.h"
#include "animation/near_keys.h"
#include "animation/node_index.h"
#include "layout/anchors.h"
#include "layout/shape.h"
#include "module/manager.h"

namespace {

template <class Element>
int alignment_of(const Element* element) {
    if (!element) return 0;
    return element->m_bScaleMode ? ALIGN_SCALE : element->m_iAlignType;
}

// The first key of the alignment track decides whatever its time; without keys the item does.
int leading_alignment(ITrack* track, const NodeIndex::Item& found, const IActor& actor) {
    if (track->get_key_count() > 0) {
        auto* aligns = track_of<SGuiAlign>(track);
        if (!aligns || aligns->keys().empty()) return 0;
        return static_cast<const SGuiAlign&>(*aligns->keys().front()).m_align;
    }
    const IBaseItem* item = actor.get_item();
    if (item && item->get_type() == ITEM_TYPE_DIALOG) return alignment_of(found.dialog);
    if (item && item->get_type() == ITEM_TYPE_SHAPE) return alignment_of(found.shape);
    return 0;
}

void align_key(const CSimpleGUIManager& manager, IActor* actor, bool percent_leads, VEC2& pixels, VEC2& percent) {
    if (percent_leads) {
        pixels = manager.get_offset_by_percent(percent, actor);
    } else {
        percent = manager.get_percent_offset_by_pixel(pixels, actor);
    }
}

}  // namespace

void CSimpleGUIManager::align_keys_of_opened_project() {
    const NodeIndexInUse index(*this);
    for (CSimpleGUIAnimNode* node : m_anim_nodes) {
        const NodeIndex::Item* found = node ? index->item_of(*node) : nullptr;
        if (!found) continue;
        IActor* actor = m_system->m_scene_manager->search_actor_by_guid(node->get_internal_item_id());
        auto* offsets = track_of<SGuiOffset>(node->get_track(TRACK_TYPE_OFFSET));
        auto* sizes = track_of<SGuiSize>(node->get_track(TRACK_TYPE_SIZE));
        ITrack* aligns = node->get_track(TRACK_TYPE_ALIGN);
        if (!actor || !offsets || !sizes || !aligns) continue;
        const bool percent_leads = leading_alignment(aligns, *found, *actor) == ALIGN_SCALE;
        for (IKey* any_key : offsets->keys()) {
            auto& key = static_cast<SGuiOffset&>(*any_key);
            align_key(*this, actor, percent_leads, key.m_offset, key.m_offset_percent);
        }
        for (IKey* any_key : sizes->keys()) {
            auto& key = static_cast<SGuiSize&>(*any_key);
            align_key(*this, actor, percent_leads, key.m_size, key.m_size_percent);
        }
    }
}
