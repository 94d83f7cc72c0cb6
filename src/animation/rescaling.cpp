// Keys hold places and sizes in pixels and as fractions of a frame. When the frame changes, or a project is opened in
// another view, the form that leads stays and the other is computed anew. Alignment 9 lets the fractions lead, any
// other the pixels.

#include <limits>
#include <optional>
#include <vector>

#include "animation/anim_node.h"
#include "animation/animated_item.h"
#include "animation/interpolation.h"
#include "animation/near_keys.h"
#include "animation/node_index.h"
#include "animation/node_order.h"
#include "animation/spread_fetch.h"
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

SAnimateContext forward_at(float moment) {
    SAnimateContext context;
    context.m_time = moment;
    return context;
}

// What a search of a track gives at one moment after the other. Moments that ascend take one pass over a sorted track.
template <class Key>
class SearchInOrder {
public:
    /// Null is a track without keys. Nobody else may touch the keys meanwhile.
    explicit SearchInOrder(TBaseTrack<Key>* track)
        : m_track(track), m_is_sorted(track && track->is_searchable()), m_keys(track ? track->all_keys() : no_keys) {}

    /// False for a moment behind which the pass has gone on, and for what is no number.
    bool reaches(float moment) const { return m_is_sorted && moment >= m_moment; }

    NearKeys<Key> around(float moment) {
        if (!reaches(moment)) return near_keys(m_track, forward_at(moment));
        m_moment = moment;
        while (m_place < m_keys.size() && m_keys[m_place]->get_time() < moment) ++m_place;
        return {m_place > 0 ? key(m_place - 1) : nullptr, m_place < m_keys.size() ? key(m_place) : nullptr};
    }

    /// The key whose value holds where values step; null without keys.
    const Key* ruling(float moment) {
        if (!reaches(moment)) {
            const Key* at_moment = key_at<Key>(m_track, moment);
            return at_moment ? at_moment : near_keys(m_track, forward_at(moment)).first();
        }
        // In a sorted track that is the last one that has begun, or reaches back to the moment, or else the first.
        m_moment = moment;
        while (m_behind < m_keys.size() && m_keys[m_behind]->get_time() - time_tolerance < moment) ++m_behind;
        return m_keys.empty() ? nullptr : key(m_behind > 0 ? m_behind - 1 : 0);
    }

private:
    static inline const std::vector<IKey*> no_keys;
    const Key* key(std::size_t place) const { return static_cast<const Key*>(m_keys[place]); }

    TBaseTrack<Key>* m_track;
    const bool m_is_sorted;
    const std::vector<IKey*>& m_keys;
    float m_moment = -std::numeric_limits<float>::infinity();
    // The first key that is not ahead of the moment, and the first of those that are too far behind it.
    std::size_t m_place = 0;
    std::size_t m_behind = 0;
};

// What the keys of a track say, each at its own moment.
template <class Key>
void evaluate_keys(TBaseTrack<Key>& track, const Fields<Key>& fields, TBaseTrack<SGuiAlign>* aligns, int otherwise,
                   const VEC2& frame, SpreadFetch& ahead, std::vector<BothForms>& results) {
    results.clear();
    SearchInOrder<Key> keys(&track);
    SearchInOrder<SGuiAlign> alignments(aligns);
    for (const IKey* key : track.keys()) {
        ahead.step();
        const float moment = key->get_time();
        const SGuiAlign* leading = alignments.ruling(moment);
        const bool percent_leads = (leading ? leading->m_align : otherwise) == ALIGN_SCALE;
        results.push_back(forms_at(keys.around(moment), fields, moment, percent_leads, frame));
    }
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
SpreadFetch CSimpleGUIAnimNode::approach_next_rescalings() {
    NodeOrder& order = node_orders.rescalings;
    order.enter(this);
    SpreadFetch ahead;
    if (const CSimpleGUIAnimNode* node = order.ahead(5)) ahead.add(node, sizeof *node);
    if (const CSimpleGUIAnimNode* node = order.ahead(4)) ahead.add(node->m_tracks.data(), 1);
    if (const CSimpleGUIAnimNode* node = order.ahead(3)) {
        for (const ITrack* track : node->m_tracks) ahead.add(track, sizeof(TBaseTrack<SGuiOffset>));
    }
    if (const CSimpleGUIAnimNode* node = order.ahead(2)) {
        ahead.add(node->m_step.actor, 1);
        ahead.add(node->m_step.item, 1);
        node->each_rescaled_track([&ahead](const auto& track) {
            ahead.add(track.all_keys().data(), track.all_keys().size() * sizeof(void*));
        });
    }
    if (const CSimpleGUIAnimNode* node = order.ahead(1)) {
        node->each_rescaled_track([&ahead](const auto& track) { ahead.add_keys(track.all_keys()); });
    }
    return ahead;
}

void CSimpleGUIAnimNode::rescale_keys(IActor* actor) {
    auto* offsets = track_of<SGuiOffset>(get_track(TRACK_TYPE_OFFSET));
    auto* sizes = track_of<SGuiSize>(get_track(TRACK_TYPE_SIZE));
    ITrack* any_aligns = get_track(TRACK_TYPE_ALIGN);
    if (!offsets || !sizes || !any_aligns) return;
    const AnimatedItem item = animated_item(*m_manager, actor);
    if (!item.exists() || !item.has_frame) return;
    m_step.actor = actor;
    m_step.item = item.shape ? static_cast<const IBaseItem*>(item.shape) : item.dialog;
    auto* aligns = track_of<SGuiAlign>(any_aligns);
    const TBaseTrack<SGuiOffset>::KnownOrder offsets_in_order(*offsets);
    const TBaseTrack<SGuiSize>::KnownOrder sizes_in_order(*sizes);
    std::optional<TBaseTrack<SGuiAlign>::KnownOrder> aligns_in_order;
    if (aligns) aligns_in_order.emplace(*aligns);
    SpreadFetch ahead = approach_next_rescalings();
    // All evaluations come ahead of the first write: the one at a key's moment reads the key's neighbours.
    const VEC2 frame = size_of(item.frame);
    evaluate_keys(*offsets, offset_fields, aligns, item.alignment(), frame, ahead, offset_results);
    evaluate_keys(*sizes, size_fields, aligns, item.alignment(), frame, ahead, size_results);
    ahead.finish();
    store_keys(*offsets, offset_fields, offset_results);
    store_keys(*sizes, size_fields, size_results);
}

void CSimpleGUIDialog::resize_shape_animnode_key() {
    // A dialog that only moves leaves its shapes' keys alone.
    if (m_rect.Width() == m_last_rect.Width() && m_rect.Height() == m_last_rect.Height()) return;
    if (m_manager->m_anim_nodes.empty()) return;
    const NodeIndexInUse index(*m_manager, true);
    // No size that there is: should memory end on the way, those ahead go along again next time.
    m_last_rect = {0, 0, -1, -1};
    index->each_node_of_shapes(
        *this, [](const CSimpleGUIShape& shape, CSimpleGUIAnimNode& node) { node.rescale_keys(shape.m_actor); });
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
