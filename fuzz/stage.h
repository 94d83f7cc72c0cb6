#pragma once

// What the fuzz targets share: a promise, an engine with the module and no screen, and a short life for a project.

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

#include "host/core/clock.h"
#include "host/core/recording_device.h"
#include "host/system/engine.h"

namespace fuzz {

inline void must(bool holds, const char* promise) {
    if (holds) return;
    std::fprintf(stderr, "broken promise: %s\n", promise);
    std::abort();
}

struct Stage {
    Stage() : engine(device, {}) {
        host::use_settable_time(0.0);
        engine.draw_scene = nullptr;
        engine.scene().use_counted_ids();
        std::string error;
        must(engine.load_module(MODULE_PATH, error), error.c_str());
    }
    host::RecordingDevice device;
    host::Engine engine;
};

inline void live(host::Engine& engine) {
    engine.frame(0.0);
    engine.start_run();
    for (const auto& animation : engine.animations().all()) animation->start();
    for (double seconds : {0.0, 0.4, 1.0}) {
        host::set_time(seconds);
        engine.mouse(host::InputKind::MOVE, 5, 5);
        engine.frame(seconds);
    }
    engine.stop_run();
    for (const auto& [width, height] : {std::pair{0, 0}, {333, 201}}) engine.resize(width, height);
    engine.frame(1.0);
}

}  // namespace fuzz
