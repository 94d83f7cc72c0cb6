// The animations of a legacy project: bars, commands, keys.

#include "legacy/timebar.h"

#include <algorithm>
#include <new>

#include "animation/keys.h"
#include "animation/near_keys.h"
#include "layout/anchors.h"
#include "layout/shape.h"
#include "legacy/animation_settings.h"
#include "legacy/color.h"
#include "legacy/panel_place.h"

namespace {

// A moment of one item, in both forms of place and size.
struct LegacyKey {
    VEC2 offset;
    VEC2 size;
    VEC2 offset_percent;
    VEC2 size_percent;
    int visible = 0;
    int align = 0;
    int scale = 0;
};

void read_plain_key(CPakNode& node, LegacyKey& key) {
    key.offset = {read_legacy_float(node, "m_offset_x"), read_legacy_float(node, "m_offset_y")};
    key.size = {read_legacy_float(node, "m_sizex"), read_legacy_float(node, "m_sizey")};
    key.visible = read_legacy_int(node, "m_bVisible");
    key.align = read_legacy_int(node, "iAlignType");
    key.scale = read_legacy_int(node, "m_bScaleMode");
}

// A key that says nothing of the place hides the panel.
void read_panel_key(CPakNode& node, LegacyKey& key) {
    CPakNode* panel_pos = find_legacy_child(node.find("POS"), "panel_pos");
    if (!panel_pos) return;
    const PanelPlace place = read_panel_place(*panel_pos);
    key.scale = place.locate_mode;
    key.size = {static_cast<float>(place.width), static_cast<float>(place.height)};
    key.align = panel_alignment(place.align_mode);
    key.offset = panel_key_offset(place);
    key.offset_percent = {place.left, place.top};
    key.size_percent = {place.right - place.left, place.bottom - place.top};
    key.visible = 1;
}

struct GuiTracks {
    TBaseTrack<SGuiOffset>* offset;
    TBaseTrack<SGuiSize>* size;
    TBaseTrack<SGuiVisible>* visible;
    TBaseTrack<SGuiAlign>* align;
    /// May be missing.
    TBaseTrack<SGuiColor>* color;

    bool can_place() const { return offset && size && visible && align; }
    void finish() const {
        for (ITrack* track : std::initializer_list<ITrack*>{offset, size, visible, align, color}) {
            if (!track) continue;
            track->sort_keys();
            track->update_keys();
            track->smooth();
        }
    }
};

// The new key stands at the end, also where another one stands so near that looking for the moment could find that.
template <class Key>
Key& append(TBaseTrack<Key>& track, float time) {
    if (!track.create_key(time, true)) throw std::bad_alloc();
    return static_cast<Key&>(*track.keys().back());
}

void write_key(const GuiTracks& tracks, float time, const LegacyKey& key) {
    SGuiOffset& offset = append(*tracks.offset, time);
    offset.m_offset = key.offset;
    offset.m_offset_percent = key.offset_percent;
    SGuiSize& size = append(*tracks.size, time);
    size.m_size = key.size;
    size.m_size_percent = key.size_percent;
    append(*tracks.visible, time).m_visible = key.visible;
    append(*tracks.align, time).m_align = key.align;
}

// One command: the keys of one item, which need not exist. Its frame is then taken to have no size.
class Command {
public:
    Command(CSimpleGUIManager& manager, CAnimNodeBase& node, bool is_primary)
        : m_manager(manager), m_is_primary(is_primary) {
        const CGuid item = node.get_internal_item_id();
        m_actor = manager.get_system()->m_scene_manager->search_actor_by_guid(item);
        m_shape = manager.get_shape_by_guid(item);
        m_tracks = {track_of<SGuiOffset>(node.get_track(TRACK_TYPE_OFFSET)),
                    track_of<SGuiSize>(node.get_track(TRACK_TYPE_SIZE)),
                    track_of<SGuiVisible>(node.get_track(TRACK_TYPE_VISIBLE)),
                    track_of<SGuiAlign>(node.get_track(TRACK_TYPE_ALIGN)),
                    track_of<SGuiColor>(node.get_track(TRACK_TYPE_COLOR))};
    }

    /// `last_moment` grows to that of the latest key.
    void read_keys(CPakNode& keys, float& last_moment) {
        if (!m_tracks.can_place()) return;
        each_legacy_child(&keys, [&](CPakNode& node) {
            const float time = read_legacy_moment(node, "TIME");
            last_moment = std::max(last_moment, time);
            read_key(node, time);
        });
        m_tracks.finish();
    }

private:
    void read_key(CPakNode& node, float time) {
        LegacyKey key;
        if (m_is_primary) {
            read_panel_key(node, key);
            read_color(node, time);
        } else {
            read_plain_key(node, key);
        }
        if (key.scale == 1) key.align = ALIGN_SCALE;
        if (key.align == ALIGN_SCALE) key.scale = 1;
        complete(key);
        write_key(m_tracks, time, key);
    }

    void read_color(CPakNode& node, float time) {
        if (!m_tracks.color) return;
        VEC4 color = decode_legacy_color(read_legacy_int(node, "COLOR"));
        if (m_shape && m_shape->m_primary_import) color.w = legacy_opacity(read_legacy_int(node, "ALPHA", 1));
        append(*m_tracks.color, time).m_color = color;
    }

    // From the form that leads to the other one.
    void complete(LegacyKey& key) const {
        if (key.scale == 0) {
            key.offset_percent = m_manager.get_percent_offset_by_pixel(key.offset, m_actor);
            key.size_percent = m_manager.get_percent_size_by_pixel(key.size, m_actor);
            return;
        }
        // In scale mode the plain layout keeps fractions where it otherwise keeps pixels.
        if (!m_is_primary) {
            key.offset_percent = key.offset;
            key.size_percent = key.size;
        }
        key.offset = m_manager.get_offset_by_percent(key.offset_percent, m_actor);
        key.size = m_manager.get_size_by_percent(key.size_percent, m_actor);
    }

    CSimpleGUIManager& m_manager;
    bool m_is_primary;
    IActor* m_actor;
    CSimpleGUIShape* m_shape;
    GuiTracks m_tracks{};
};

void import_command(CSimpleGUIManager& manager, CAnimation& animation, CPakNode& node, float& last_moment) {
    const LegacyCommand* kind = find_legacy_command(read_legacy_int(node, "TYPE"));
    if (!kind) return;
    const CMyComPtr<CAnimNodeBase> made(AnimSystemLibrary::create_anim_node_by_type(
        manager.get_system(), ANIM_NODE_TYPE_GUI, read_legacy_guid(node, kind->id_key)));
    if (!made) return;
    animation.add_anim_node(made.get());
    if (CPakNode* keys = node.find("KEYS")) Command(manager, *made, kind->is_primary).read_keys(*keys, last_moment);
}

void import_bar(CSimpleGUIManager& manager, CAnimManager& animations, CPakNode& bar) {
    CAnimation* animation = animations.create_animation(bar.get_name().c_str());
    float last_moment = 0.0f;
    each_legacy_child(bar.find("CMDS"),
                      [&](CPakNode& command) { import_command(manager, *animation, command, last_moment); });
    animation->set_anim_info(legacy_anim_info(read_legacy_int(bar, "TYPE"), last_moment));
}

}  // namespace

void import_legacy_timebar(CSimpleGUIManager& manager, CPakNode& timebar) {
    CAnimManager* animations = manager.get_system()->m_anim_manager;
    if (!animations) return;
    each_legacy_child(timebar.find("BARS"), [&](CPakNode& bar) { import_bar(manager, *animations, bar); });
}
