// Keys hold places and sizes in pixels and as fractions of a frame. When the frame changes, or a project is opened in
// another view, the form that leads stays and the other is computed anew. Alignment 9 lets the fractions lead, any
// other the pixels.

#include <algorithm>
#include <optional>
#include <vector>

#include "animation/anim_node.h"
#include "animation/animated_item.h"
#include "animation/interpolation.h"
#include "animation/near_keys.h"
#include "animation/node_index.h"
#include "animation/node_order.h"
#include "layout/anchors.h"
#include "layout/rounding.h"

namespace {

// Both forms of a place or a size.
struct BothForms {
    VEC2 pixels;
    VEC2 percent;
};

template <class Key>
struct Fields {
    VEC2 Key::*pixels;
    VEC2 Key::*percent;
};
constexpr Fields<SGuiOffset> offset_fields{&SGuiOffset::m_offset, &SGuiOffset::m_offset_percent};
constexpr Fields<SGuiSize> size_fields{&SGuiSize::m_size, &SGuiSize::m_size_percent};

VEC2 size_of(const CRect& frame) { return {static_cast<float>(frame.Width()), static_cast<float>(frame.Height())}; }

BothForms from_pixels(const VEC2& pixels, const VEC2& frame) {
    return {pixels, {fraction(pixels.x, frame.x), fraction(pixels.y, frame.y)}};
}
BothForms from_percent(const VEC2& percent, const VEC2& frame) {
    return {{frame.x * percent.x, frame.y * percent.y}, percent};
}

// There is a key.
template <class Key>
BothForms forms_at(const NearKeys<Key>& keys, const Fields<Key>& fields, float moment, bool percent_leads,
                   const VEC2& frame) {
    return percent_leads ? from_percent(mixed_field(keys, moment, fields.percent), frame)
                         : from_pixels(mixed_field(keys, moment, fields.pixels), frame);
}

VEC2 place_in_frame(const AnimatedItem& item) {
    // The view has its origin at 0, 0, a shape's frame where its dialog lies.
    const CRect& rect = item.rect();
    const CRect origin = item.shape ? item.frame : CRect();
    return {static_cast<float>(saturated(std::int64_t{rect.left} - origin.left)),
            static_cast<float>(saturated(std::int64_t{rect.top} - origin.top))};
}

bool percent_leads_at(TBaseTrack<SGuiAlign>* aligns, const SAnimateContext& context, int otherwise) {
    const auto near = near_keys(aligns, context);
    const bool is_sorted = aligns && aligns->is_searchable();
    return alignment_at(aligns, near, context.m_time, otherwise, is_sorted) == ALIGN_SCALE;
}

// Whether the fractions lead at a moment. Keys of place and size mostly stand at the same moments, so that the last
// answer serves again.
class Leading {
public:
    Leading(TBaseTrack<SGuiAlign>* aligns, int otherwise) : m_aligns(aligns), m_otherwise(otherwise) {}
    bool percent_at(const SAnimateContext& context) {
        if (m_is_known && context.m_time == m_time) return m_percent_leads;
        m_is_known = true;
        m_time = context.m_time;
        return m_percent_leads = percent_leads_at(m_aligns, context, m_otherwise);
    }

private:
    TBaseTrack<SGuiAlign>* m_aligns;
    int m_otherwise;
    bool m_is_known = false;
    float m_time = 0.0f;
    bool m_percent_leads = false;
};

// What the key at that place of the track says at its own moment. Nothing behind the last.
template <class Key>
void evaluate_key(TBaseTrack<Key>& track, std::size_t place, const Fields<Key>& fields, Leading& leading,
                  const VEC2& frame, std::vector<BothForms>& results) {
    if (place >= track.keys().size()) return;
    SAnimateContext context;
    context.m_time = track.keys()[place]->get_time();
    results.push_back(forms_at(near_keys(&track, context), fields, context.m_time, leading.percent_at(context), frame));
}

template <class Key>
void store_keys(TBaseTrack<Key>& track, const Fields<Key>& fields, const std::vector<BothForms>& results) {
    for (std::size_t at = 0; at < results.size(); ++at) {
        auto& key = static_cast<Key&>(*track.keys()[at]);
        key.*fields.pixels = results[at].pixels;
        key.*fields.percent = results[at].percent;
    }
}

// Kept from one node to the next: a dialog whose size plays rescales its shapes' keys at every step.
std::vector<BothForms> offset_results;
std::vector<BothForms> size_results;

}  // namespace

void CSimpleGUIAnimNode::evaluate_at(const SAnimateContext& context, IActor* actor, VEC2& offset, VEC2& size,
                                     VEC2& offset_percent, VEC2& size_percent) {
    const AnimatedItem item = animated_item(*m_manager, actor);
    if (!item.exists() || !item.has_frame) return;
    const VEC2 frame = size_of(item.frame);
    const auto offsets = near_keys<SGuiOffset>(get_track(TRACK_TYPE_OFFSET), context);
    const auto sizes = near_keys<SGuiSize>(get_track(TRACK_TYPE_SIZE), context);
    auto* aligns = track_of<SGuiAlign>(get_track(TRACK_TYPE_ALIGN));
    const bool percent_leads = percent_leads_at(aligns, context, item.alignment());

    const BothForms place = offsets.none() ? from_pixels(place_in_frame(item), frame)
                                           : forms_at(offsets, offset_fields, context.m_time, percent_leads, frame);
    const BothForms extent = sizes.none() ? from_pixels(item.size(), frame)
                                          : forms_at(sizes, size_fields, context.m_time, percent_leads, frame);
    offset = place.pixels;
    offset_percent = place.percent;
    size = extent.pixels;
    size_percent = extent.percent;
}

template <class Visit>
void CSimpleGUIAnimNode::each_rescaled_track(Visit visit) const {
    for (ITrack* any_track : m_tracks) {
        if (const auto* offsets = track_of<SGuiOffset>(any_track)) visit(*offsets);
        if (const auto* sizes = track_of<SGuiSize>(any_track)) visit(*sizes);
        if (const auto* aligns = track_of<SGuiAlign>(any_track)) visit(*aligns);
    }
}

// From node to tracks to lists to keys, each a node nearer, when what leads there has come.
void CSimpleGUIAnimNode::approach_next_rescalings() {
    NodeOrder& order = node_orders.rescalings;
    order.enter(this);
    if (const CSimpleGUIAnimNode* node = order.ahead(5)) fetch_all(node, sizeof *node);
    if (const CSimpleGUIAnimNode* node = order.ahead(4)) fetch(node->m_tracks.data());
    if (const CSimpleGUIAnimNode* node = order.ahead(3)) {
        for (const ITrack* track : node->m_tracks) fetch_all(track, sizeof(TBaseTrack<SGuiOffset>));
    }
    if (const CSimpleGUIAnimNode* node = order.ahead(2)) {
        node->each_rescaled_track(
            [](const auto& track) { fetch_all(track.all_keys().data(), track.all_keys().size() * sizeof(void*)); });
    }
    if (const CSimpleGUIAnimNode* node = order.ahead(1)) {
        node->each_rescaled_track([]<class Key>(const TBaseTrack<Key>& track) {
            for (const IKey* key : track.all_keys()) fetch_all(key, sizeof(Key) + 1);
        });
    }
}

void CSimpleGUIAnimNode::rescale_keys(IActor* actor) {
    approach_next_rescalings();
    auto* offsets = track_of<SGuiOffset>(get_track(TRACK_TYPE_OFFSET));
    auto* sizes = track_of<SGuiSize>(get_track(TRACK_TYPE_SIZE));
    ITrack* any_aligns = get_track(TRACK_TYPE_ALIGN);
    if (!offsets || !sizes || !any_aligns) return;
    const AnimatedItem item = animated_item(*m_manager, actor);
    if (!item.exists() || !item.has_frame) return;
    auto* aligns = track_of<SGuiAlign>(any_aligns);
    const TBaseTrack<SGuiOffset>::KnownOrder offsets_in_order(*offsets);
    const TBaseTrack<SGuiSize>::KnownOrder sizes_in_order(*sizes);
    std::optional<TBaseTrack<SGuiAlign>::KnownOrder> aligns_in_order;
    if (aligns) aligns_in_order.emplace(*aligns);
    // All evaluations come ahead of the first write: the one at a key's moment reads the key's neighbours.
    offset_results.clear();
    size_results.clear();
    Leading leading(aligns, item.alignment());
    const VEC2 frame = size_of(item.frame);
    for (std::size_t at = 0, end = std::max(offsets->keys().size(), sizes->keys().size()); at < end; ++at) {
        evaluate_key(*offsets, at, offset_fields, leading, frame, offset_results);
        evaluate_key(*sizes, at, size_fields, leading, frame, size_results);
    }
    store_keys(*offsets, offset_fields, offset_results);
    store_keys(*sizes, size_fields, size_results);
}

void CSimpleGUIDialog::resize_shape_animnode_key() {
    // A dialog that only moves leaves its shapes' keys alone.
    if (m_rect.Width() == m_last_rect.Width() && m_rect.Height() == m_last_rect.Height()) return;
    if (m_manager->m_anim_nodes.empty()) return;
    const NodeIndexInUse index(*m_manager, true);
    for (CSimpleGUIShape* shape : m_shapes) {
        if (!shape) continue;
        index->each_node_of(*shape, *this, [&](CSimpleGUIAnimNode& node) { node.rescale_keys(shape->m_actor); });
    }
}

CSimpleGUIShape* CSimpleGUIDialog::get_animnode_related_shape_in_me(CSimpleGUIAnimNode* node) {
    CSimpleGUIShape* shape = m_manager->get_shape_by_guid(node->get_internal_item_id());
    return shape && m_shapes.contains(shape) ? shape : nullptr;
}

void CSimpleGUIManager::rescale_keys_of_dialogs() {
    const NodeIndexInUse index(*this);
    for (CSimpleGUIAnimNode* node : m_anim_nodes) {
        // The keys of shapes went along when their dialog changed its size.
        const NodeIndex::Item* found = node ? index->item_of(*node) : nullptr;
        if (found && found->dialog) node->rescale_keys(found->dialog->m_actor);
    }
}
