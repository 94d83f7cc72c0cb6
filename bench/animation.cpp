// What a step of all animations costs, and the keys after a new view size.

#include <stdexcept>

#include "host/core/clock.h"
#include "measure.h"
#include "scene/show.h"

namespace {

void animate(benchmark::State& state) {
    const bench::Crowd crowd{.shapes = static_cast<int>(state.range(0))};
    bench::Show show(crowd);
    show.animate(crowd);
    show.engine.start_run();
    for (auto _ : state) {
        host::advance_time(1.0 / 60.0);
        if (!show.engine.animations().step()) throw std::runtime_error("nothing plays");
    }
    bench::report(state, static_cast<double>(state.range(0)),
                  "a step of the clock; every shape is animated: place, size, visibility, alignment and colour");
}

// Keys of place and size have something to bring in line, those of the three other tracks have not and don't count.
void rekey(benchmark::State& state) {
    constexpr int tracks_with_sizes = 2;
    const bench::Crowd crowd{.shapes = static_cast<int>(state.range(0)), .scaled_dialogs = true};
    bench::Show show(crowd);
    show.animate(crowd);
    int width = bench::crowd_width;
    for (auto _ : state) show.engine.resize(width ^= 64, bench::crowd_height);
    bench::report(state, static_cast<double>(state.range(0) * tracks_with_sizes * bench::keys_in_track),
                  "per key of place or size: the engine's resize with every dialog scaled and every shape animated");
}

}  // namespace

BENCHMARK(animate)->Apply(bench::crowd_sizes);
BENCHMARK(rekey)->Apply(bench::crowd_sizes);
