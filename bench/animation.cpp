// What a resize and a step of all animations cost: in a project of so many shapes, 100 in a dialog, every tenth of them
// is moved by a node of 5 tracks with 20 keys each. The second size of each shows whether the cost grows evenly.

#include <benchmark/benchmark.h>

#include <stdexcept>

#include "host/core/clock.h"
#include "host/core/recording_device.h"
#include "host/system/engine.h"

namespace {

using host::ProjectItem;
using host::ProjectNode;

constexpr int shapes_in_dialog = 100;
constexpr int shapes_for_node = 10;
constexpr int keys_in_track = 20;
constexpr double key_distance = 0.25;

CGuid identifier(int number) {
    GUID id{};
    id.Data1 = 1;
    id.Data4[4] = static_cast<unsigned char>(number >> 16);
    id.Data4[5] = static_cast<unsigned char>(number >> 8);
    id.Data4[6] = static_cast<unsigned char>(number);
    return id;
}

ProjectItem scaled_item(unsigned long type, int number, float left) {
    ProjectItem item;
    item.type = type;
    item.id = identifier(number);
    item.data.set("m_bScaleMode", host::StoredBool{1});
    item.data.set("m_left_scaleMode", left);
    item.data.set("m_right_scaleMode", left + 0.1f);
    item.data.set("m_bottom_scaleMode", 0.5f);
    item.data.set("m_order_num", number);
    return item;
}

void add_track(ProjectNode& tracks, unsigned type) {
    ProjectNode& track = tracks.add("track");
    track.set("track_type", static_cast<int>(type));
    ProjectNode& keys = track.add("keys");
    for (int at = 0; at < keys_in_track; ++at) {
        const float share = static_cast<float>(at) / keys_in_track;
        ProjectNode& key = keys.add("child");
        key.set("time", static_cast<float>(at * key_distance));
        key.set("offset_percent", VEC3(share, share, 0));
        key.set("size_percent", VEC3(0.1f + share, 0.1f, 0));
        key.set("visible", at % 2);
        key.set("align", 9);
        key.set("color", VEC3(share, 1, 1));
        key.set("alpha", 1.0f);
    }
}

host::ProjectDocument project(int shapes) {
    host::ProjectDocument document;
    host::ProjectAnimation& animation = document.animations.emplace_back();
    animation.info.length = static_cast<float>(keys_in_track * key_distance);
    animation.starts_by_itself = true;
    int dialog = 0;
    for (int number = 1; number <= shapes; ++number) {
        if (number % shapes_in_dialog == 1) {
            dialog = shapes + number;
            document.items.push_back(scaled_item(ITEM_TYPE_DIALOG, dialog, 0.25f));
        }
        document.items.push_back(scaled_item(ITEM_TYPE_SHAPE, number, 0.5f));
        document.items.back().parent = identifier(dialog);
        if (number % shapes_for_node != 0) continue;
        host::ProjectAnimNode& node = animation.nodes.emplace_back();
        node.type = ANIM_NODE_TYPE_GUI;
        node.item = identifier(number);
        ProjectNode& tracks = node.data.add("tracks");
        for (unsigned type = TRACK_TYPE_OFFSET; type <= TRACK_TYPE_COLOR; ++type) add_track(tracks, type);
    }
    return document;
}

class Show {
public:
    explicit Show(int shapes) {
        host::use_settable_time(0);
        std::string error;
        if (!engine.load_module(MODULE_PATH, error)) throw std::runtime_error(error);
        engine.new_project(800, 600);
        if (!engine.open_document(project(shapes), "", error)) throw std::runtime_error(error);
        engine.start_run();
    }

    host::RecordingDevice device;
    host::Engine engine{device, L""};
};

void resize(benchmark::State& state) {
    Show show(static_cast<int>(state.range(0)));
    int width = 800;
    for (auto _ : state) show.engine.resize(width ^= 64, 600);
}

void step_of_all(benchmark::State& state) {
    Show show(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        host::advance_time(1.0 / 60.0);
        if (!show.engine.animations().step()) throw std::runtime_error("nothing plays");
    }
}

void open_project(benchmark::State& state) {
    Show show(0);
    const host::ProjectDocument document = project(static_cast<int>(state.range(0)));
    std::string error;
    for (auto _ : state) {
        if (!show.engine.open_document(document, "", error)) throw std::runtime_error(error);
    }
}

}  // namespace

BENCHMARK(resize)->Arg(10000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(step_of_all)->Arg(10000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(open_project)->Arg(10000)->Arg(20000)->Unit(benchmark::kMillisecond);
