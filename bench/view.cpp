// What a new view size and a moved mouse cost.

#include "measure.h"
#include "scene/show.h"

namespace {

using bench::Crowd;

Crowd crowd_of(const benchmark::State& state) { return {.shapes = static_cast<int>(state.range(0))}; }

void resize(benchmark::State& state) {
    bench::Show show(crowd_of(state));
    show.engine.start_run();
    int width = bench::crowd_width;
    for (auto _ : state) show.engine.resize(width ^= 64, bench::crowd_height);
    bench::report(state, static_cast<double>(state.range(0)),
                  "the engine's resize: every dialog and shape laid out anew");
}

// The pointer stays over the same shapes.
void move_still(benchmark::State& state) {
    bench::Show show(crowd_of(state));
    show.engine.start_run();
    int x = 400;
    for (auto _ : state) show.engine.mouse(host::InputKind::MOVE, x ^= 1, 300);
    bench::report(state, static_cast<double>(state.range(0)),
                  "a mouse move by a pixel through the input chain, over the same shapes as before");
}

// Ahead of each move one dialog was moved, and the pointer arrives over other shapes.
void move_changed(benchmark::State& state) {
    bench::Show show(crowd_of(state));
    show.engine.start_run();
    host::LuaBox box({host::LuaLimits().memory_bytes, 0, 0.0});
    std::string error;
    host::LuaError failure;
    if (!show.engine.scripts().bind_functions(box, false, error)) return state.SkipWithError(error.c_str());
    int x = 400;
    for (auto _ : state) {
        if (!box.run("set_wnd_rect('dialog 0', {40, 30, 640, 430})", failure))
            return state.SkipWithError(failure.message.c_str());
        x ^= 256;
        state.SetIterationTime(bench::seconds_of([&] { show.engine.mouse(host::InputKind::MOVE, x, 300); }));
    }
    bench::report(state, static_cast<double>(state.range(0)),
                  "a mouse move to other shapes, a dialog having been moved since the last; the script is not timed");
}

}  // namespace

BENCHMARK(resize)->Apply(bench::crowd_sizes);
BENCHMARK(move_still)->Apply(bench::crowd_sizes);
BENCHMARK(move_changed)->Apply(bench::crowd_sizes)->UseManualTime();
