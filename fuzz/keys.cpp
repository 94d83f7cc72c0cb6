// Any keys at any times, changed in any order while they play forward and backward at any moment and while the view
// changes its size. Of two shapes that are animated alike, the lists of one are held by somebody, so that each of its
// searches is a plain walk: both must go the same way.

#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <bit>

#include "animation/keys.h"
#include "fuzz/stage.h"
#include "layout/dialog.h"
#include "layout/shape.h"
#include "module/manager.h"

namespace {

// Every other one has its lists held by somebody.
constexpr std::size_t node_count = 12;
using Nodes = std::array<CMyComPtr<CAnimNodeBase>, node_count>;

float any_number(FuzzedDataProvider& chance) {
    if (chance.ConsumeIntegralInRange(0, 3) > 0)
        return static_cast<float>(chance.ConsumeIntegralInRange(-2, 60)) * 0.02f;
    return std::bit_cast<float>(chance.ConsumeIntegral<std::uint32_t>());
}

void fill(IKey* key, unsigned type, float number) {
    switch (type) {
        case TRACK_TYPE_OFFSET:
            static_cast<SGuiOffset*>(key)->m_offset = {number, -number};
            static_cast<SGuiOffset*>(key)->m_offset_percent = {-number, 0.25f};
            break;
        case TRACK_TYPE_SIZE:
            static_cast<SGuiSize*>(key)->m_size = {number, 1.0f};
            static_cast<SGuiSize*>(key)->m_size_percent = {0.5f, number};
            break;
        case TRACK_TYPE_VISIBLE:
            static_cast<SGuiVisible*>(key)->m_visible = number < 0.5f;
            break;
        case TRACK_TYPE_ALIGN:
            static_cast<SGuiAlign*>(key)->m_align = number >= 0 && number < 1 ? static_cast<int>(number * 10) : 9;
            break;
        default:
            static_cast<SGuiColor*>(key)->m_color = {number, number, -number, 1.0f};
    }
}

void change(const Nodes& nodes, FuzzedDataProvider& chance) {
    const unsigned type = TRACK_TYPE_OFFSET + chance.ConsumeIntegralInRange(0u, 4u);
    const float time = any_number(chance);
    const float number = any_number(chance);
    const int what = chance.ConsumeIntegralInRange(0, 5);
    for (const auto& node : nodes) {
        ITrack* track = node->get_track(type);
        if (what <= 1) {
            track->create_key(time, what == 0);
            if (IKey* key = track->find_key(time)) fill(key, type, number);
        } else if (what == 2) {
            track->remove_key(time);
        } else if (what == 3) {
            track->sort_keys();
        } else if (IKey* key = what == 4 ? track->find_key(time) : nullptr) {
            key->m_time = number;
            track->update_keys();
        }
    }
}

bool are_equal(const CSimpleGUIShape& a, const CSimpleGUIShape& b) {
    using Bits = std::array<std::uint32_t, 4>;
    return a.m_rect == b.m_rect && std::bit_cast<Bits>(a.m_color) == std::bit_cast<Bits>(b.m_color) &&
           a.m_iAlignType == b.m_iAlignType && a.m_bScaleMode == b.m_bScaleMode &&
           a.m_actor->is_visible() == b.m_actor->is_visible();
}

// The keys' bits; the lists of the first are not to be held, so each key is looked for at its twin's moment.
bool are_equal(CAnimNodeBase& searched, CAnimNodeBase& walked) {
    using Bits = std::array<std::uint32_t, 4>;
    for (const IKey* any_key : walked.get_track(TRACK_TYPE_OFFSET)->get_keys()) {
        if (walked.get_track(TRACK_TYPE_OFFSET)->find_key(any_key->m_time) != any_key) continue;
        const IKey* any_twin = searched.get_track(TRACK_TYPE_OFFSET)->find_key(any_key->m_time);
        if (!any_twin) return false;
        const auto& key = static_cast<const SGuiOffset&>(*any_key);
        const auto& twin = static_cast<const SGuiOffset&>(*any_twin);
        const auto bits = [](const SGuiOffset& of) {
            return std::bit_cast<Bits>(
                VEC4(of.m_offset.x, of.m_offset.y, of.m_offset_percent.x, of.m_offset_percent.y));
        };
        if (bits(key) != bits(twin)) return false;
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static fuzz::Stage stage;
    FuzzedDataProvider chance(data, size);
    host::Engine& engine = stage.engine;
    engine.new_project(320, 200);
    CSimpleGUIManager& gui = *CSimpleGUIManager::m_instance;
    CSimpleGUIDialog* dialog = gui.create_dialog();
    dialog->set_rect({10, 10, 210, 110}, false);
    dialog->set_scale_mode(1);
    std::array<CSimpleGUIShape*, node_count> shapes{};
    Nodes nodes;
    for (std::size_t at = 0; at < node_count; ++at) {
        shapes[at] = gui.create_shape(dialog);
        shapes[at]->set_rect({20, 20, 60, 50});
        nodes[at] =
            AnimSystemLibrary::create_anim_node_by_type(&engine, ANIM_NODE_TYPE_GUI, shapes[at]->m_actor->get_id());
        if (at % 2 == 0) continue;
        for (ITrack* track : nodes[at]->get_tracklist()) track->get_keys();
    }
    SAnimateContext context;
    while (chance.remaining_bytes() > 0) {
        switch (chance.ConsumeIntegralInRange(0, 7)) {
            case 0:
                context.m_time = any_number(chance);
                break;
            case 1:
                context.m_speed = any_number(chance);
                break;
            case 2:
                engine.resize(chance.ConsumeIntegralInRange(0, 700), 200);
                break;
            case 3:
                context.m_time += 0.01f;
                break;
            default:
                change(nodes, chance);
        }
        for (const auto& node : nodes) node->animate(context);
        for (std::size_t at = 0; at < node_count; at += 2) {
            fuzz::must(are_equal(*shapes[at], *shapes[at + 1]), "a step goes where plain walks go");
            fuzz::must(are_equal(*nodes[at], *nodes[at + 1]), "keys are brought in line as walks would bring them");
        }
        if (chance.ConsumeIntegralInRange(0, 15) == 0) {
            for (const auto& node : nodes) node->record_key(context);
        }
    }
    nodes = {};
    engine.new_project(320, 200);
    return 0;
}
