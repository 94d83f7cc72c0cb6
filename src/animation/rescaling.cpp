// Keys hold places and sizes in pixels and as fractions of a frame. When the frame changes, or a project is opened in
// another view, the form that leads stays and the other is computed anew. Alignment 9 lets the fractions lead, any
// other the pixels.

#include <cmath>
#include <vector>

#include "animation/anim_node.h"
#include "animation/animated_item.h"
#include "animation/interpolation.h"
#include "animation/near_keys.h"
#include "layout/anchors.h"
#include "layout/rounding.h"

namespace {

// Both forms of a place or a size.
struct BothForms {
    VEC2 pixels;
    VEC2 percent;
};

// The conversions for places and for sizes compute the same; one pair serves both.
BothForms with_pixels(const CSimpleGUIManager& manager, IActor* actor, const VEC2& pixels) {
    return {pixels, manager.get_percent_offset_by_pixel(pixels, actor)};
}
BothForms with_percent(const CSimpleGUIManager& manager, IActor* actor, const VEC2& percent) {
    return {manager.get_offset_by_percent(percent, actor), percent};
}

template <class Key>
struct Leading {
    VEC2 Key::*pixels;
    VEC2 Key::*percent;
};
constexpr Leading<SGuiOffset> offset_forms{&SGuiOffset::m_offset, &SGuiOffset::m_offset_percent};
constexpr Leading<SGuiSize> size_forms{&SGuiSize::m_size, &SGuiSize::m_size_percent};

template <class Key>
BothForms forms_at(const NearKeys<Key>& keys, const Leading<Key>& forms, float moment, bool percent_leads,
                   const CSimpleGUIManager& manager, IActor* actor) {
    return percent_leads ? with_percent(manager, actor, mixed_field(keys, moment, forms.percent))
                         : with_pixels(manager, actor, mixed_field(keys, moment, forms.pixels));
}

BothForms of_frame(const VEC2& pixels, const CRect& frame) {
    return {pixels, VEC2(fraction(pixels.x, static_cast<float>(frame.Width())),
                         fraction(pixels.y, static_cast<float>(frame.Height())))};
}

VEC2 place_in_frame(const AnimatedItem& item) {
    // The view has its origin at 0, 0, a shape's frame where its dialog lies.
    const CRect& rect = item.rect();
    const CRect origin = item.shape ? item.frame : CRect();
    return {static_cast<float>(saturated(std::int64_t{rect.left} - origin.left)),
            static_cast<float>(saturated(std::int64_t{rect.top} - origin.top))};
}

}  // namespace

void CSimpleGUIAnimNode::evaluate_at(const SAnimateContext& context, IActor* actor, VEC2& offset, VEC2& size,
                                     VEC2& offset_percent, VEC2& size_percent) {
    const AnimatedItem item = animated_item(*m_manager, actor);
    if (!item.exists() || !item.has_frame) return;
    const auto offsets = near_keys<SGuiOffset>(get_track(TRACK_TYPE_OFFSET), context);
    const auto sizes = near_keys<SGuiSize>(get_track(TRACK_TYPE_SIZE), context);
    const bool percent_leads = alignment_at(get_track(TRACK_TYPE_ALIGN), context, item.alignment()) == ALIGN_SCALE;

    const BothForms place = offsets.none()
                                ? of_frame(place_in_frame(item), item.frame)
                                : forms_at(offsets, offset_forms, context.m_time, percent_leads, *m_manager, actor);
    const BothForms extent = sizes.none()
                                 ? of_frame(item.size(), item.frame)
                                 : forms_at(sizes, size_forms, context.m_time, percent_leads, *m_manager, actor);
    offset = place.pixels;
    offset_percent = place.percent;
    size = extent.pixels;
    size_percent = extent.percent;
}

void CSimpleGUIAnimNode::rescale_keys(IActor* actor) {
    auto* offset_track = track_of<SGuiOffset>(get_track(TRACK_TYPE_OFFSET));
    auto* size_track = track_of<SGuiSize>(get_track(TRACK_TYPE_SIZE));
    if (!offset_track || !size_track || !get_track(TRACK_TYPE_ALIGN)) return;
    const AnimatedItem item = animated_item(*m_manager, actor);
    if (!item.exists() || !item.has_frame) return;

    // All evaluations come ahead of the first write: the one at a key's moment reads the key's neighbours.
    const auto evaluate = [&](const IKey& key, bool place) {
        SAnimateContext context;
        context.m_time = key.get_time();
        BothForms offset;
        BothForms size;
        evaluate_at(context, actor, offset.pixels, size.pixels, offset.percent, size.percent);
        return place ? offset : size;
    };
    std::vector<BothForms> offsets;
    std::vector<BothForms> sizes;
    for (const IKey* key : offset_track->get_keys()) offsets.push_back(evaluate(*key, true));
    for (const IKey* key : size_track->get_keys()) sizes.push_back(evaluate(*key, false));

    for (std::size_t at = 0; at < offsets.size(); ++at) {
        auto& key = static_cast<SGuiOffset&>(*offset_track->get_keys()[at]);
        key.m_offset = offsets[at].pixels;
        key.m_offset_percent = offsets[at].percent;
    }
    for (std::size_t at = 0; at < sizes.size(); ++at) {
        auto& key = static_cast<SGuiSize&>(*size_track->get_keys()[at]);
        key.m_size = sizes[at].pixels;
        key.m_size_percent = sizes[at].percent;
    }
}

void CSimpleGUIDialog::resize_shape_animnode_key() {
    // A dialog that only moves leaves its shapes' keys alone.
    if (m_rect.Width() == m_last_rect.Width() && m_rect.Height() == m_last_rect.Height()) return;
    for (CSimpleGUIAnimNode* node : m_manager->m_anim_nodes) {
        if (!node || node->get_type() != ANIM_NODE_TYPE_GUI) continue;
        if (CSimpleGUIShape* shape = get_animnode_related_shape_in_me(node)) node->rescale_keys(shape->m_actor);
    }
}

CSimpleGUIShape* CSimpleGUIDialog::get_animnode_related_shape_in_me(CSimpleGUIAnimNode* node) {
    CSimpleGUIShape* shape = m_manager->get_shape_by_guid(node->get_internal_item_id());
    return shape && m_shapes.contains(shape) ? shape : nullptr;
}

void CSimpleGUIManager::rescale_keys_of_dialogs() {
    for (CSimpleGUIAnimNode* node : m_anim_nodes) {
        if (!node || node->get_type() != ANIM_NODE_TYPE_GUI) continue;
        // The keys of shapes went along when their dialog changed its size.
        const CSimpleGUIDialog* dialog = get_dialog_by_guid(node->get_internal_item_id());
        if (dialog) node->rescale_keys(dialog->m_actor);
    }
}
