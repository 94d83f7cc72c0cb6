#include <utility>

#include "host/core/clock.h"
#include "player/commands.h"
#include "player/progress.h"

namespace player {

namespace {

constexpr double frame_seconds = 1.0 / 60.0;

void act(host::Engine& engine, const MouseAction& action) {
    for (host::InputKind kind : action.events) engine.mouse(kind, action.x, action.y);
}

// Time runs in frames, as in a window: fades take their weights from the frames that were drawn. Only the last frame
// is seen, so only that one has the 3D scene behind it. False where a frame ran out of memory.
bool run_until(host::Engine& engine, double seconds) {
    bool whole = true;
    const auto scene = std::exchange(engine.draw_scene, {});
    for (int step = 1; step * frame_seconds < seconds; ++step) {
        host::set_time(step * frame_seconds);
        whole = engine.frame(host::now()) && whole;
    }
    engine.draw_scene = scene;
    host::set_time(seconds);
    return engine.frame(seconds) && whole;
}

}  // namespace

int render(const RenderOptions& options) {
    host::use_settable_time(0.0);
    const Progress progress("Rendering " + options.project);
    std::string error;
    const auto session = Session::start(host::SdlDevice::in_memory(), options.module, error);
    if (!session || !session->open(options.project, options.size, error)) return fail(error);
    host::Engine& engine = session->engine();
    engine.scripts().repeatable = true;
    bool whole = true;
    if (options.running || !options.mouse.empty()) {
        whole = session->begin_show();
    } else {
        if (options.at) engine.animations().start_those_that_start_by_themselves();
        whole = engine.frame(0.0);
    }
    for (const MouseAction& action : options.mouse) {
        act(engine, action);
        whole = engine.frame(0.0) && whole;
    }
    // A picture with a part missing would be taken for the whole one.
    if (!run_until(engine, options.at.value_or(0.0)) || !whole)
        return fail(options.out + ": out of memory, not written");
    if (!session->device().save_png(options.out, error)) return fail(error);
    if (!options.save.empty() && !engine.save_project(options.save, error)) return fail(error);
    return EXIT_DONE;
}

}  // namespace player
