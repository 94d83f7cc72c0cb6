// The keys of a project that was just opened, brought in line with the present frames. Simpler than after a resize:
// each key by itself, under one alignment for the whole track.

#include "animation/anim_node.h"
#include "animation/near_keys.h"
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
int leading_alignment(const CSimpleGUIManager& manager, CSimpleGUIAnimNode& node, const IActor& actor) {
    ITrack* track = node.get_track(TRACK_TYPE_ALIGN);
    if (track->get_key_count() > 0) {
        const auto* key = dynamic_cast<const SGuiAlign*>(track->get_keys().front());
        return key ? key->m_align : 0;
    }
    const IBaseItem* item = actor.get_item();
    if (item && item->get_type() == ITEM_TYPE_DIALOG) {
        return alignment_of(manager.get_dialog_by_guid(node.get_internal_item_id()));
    }
    if (item && item->get_type() == ITEM_TYPE_SHAPE) {
        return alignment_of(manager.get_shape_by_guid(node.get_internal_item_id()));
    }
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
    for (CSimpleGUIAnimNode* node : m_anim_nodes) {
        if (!node || node->get_type() != ANIM_NODE_TYPE_GUI) continue;
        IActor* actor = m_system->m_scene_manager->search_actor_by_guid(node->get_internal_item_id());
        auto* offsets = track_of<SGuiOffset>(node->get_track(TRACK_TYPE_OFFSET));
        auto* sizes = track_of<SGuiSize>(node->get_track(TRACK_TYPE_SIZE));
        if (!actor || !offsets || !sizes || !node->get_track(TRACK_TYPE_ALIGN)) continue;
        const bool percent_leads = leading_alignment(*this, *node, *actor) == ALIGN_SCALE;
        for (IKey* any_key : offsets->get_keys()) {
            auto& key = static_cast<SGuiOffset&>(*any_key);
            align_key(*this, actor, percent_leads, key.m_offset, key.m_offset_percent);
        }
        for (IKey* any_key : sizes->get_keys()) {
            auto& key = static_cast<SGuiSize&>(*any_key);
            align_key(*this, actor, percent_leads, key.m_size, key.m_size_percent);
        }
    }
}
