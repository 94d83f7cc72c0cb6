// What a step of all animations costs, and the keys after a new view size.

#include <stdexcept>

#include "host/core/clock.h"
#include "measure.h"
#include "scene/show.h"

namespace {

std::vector<CGuid> all_shapes(const bench::Crowd& crowd) {
    std::vector<CGuid> items;
    for (int number = 0; number < crowd.shapes; ++number) items.push_back(bench::crowd_shape_id(number));
    return items;
}

// With their dialogs, whose size plays too, so that each step brings the keys of their shapes in line.
std::vector<CGuid> a_tenth(const bench::Crowd& crowd) {
    std::vector<CGuid> items;
    for (int number = 0; number < crowd.shapes; ++number) {
        if (number % crowd.shapes_in_dialog == 0)
            items.push_back(bench::crowd_dialog_id(number / crowd.shapes_in_dialog));
        else if (number % 11 == 0)
            items.push_back(bench::crowd_shape_id(number));
    }
    return items;
}

void animate(benchmark::State& state) {
    const bench::Crowd crowd{.shapes = static_cast<int>(state.range(0))};
    bench::Show show(crowd);
    show.animate(all_shapes(crowd));
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
    show.animate(all_shapes(crowd));
    int width = bench::crowd_width;
    for (auto _ : state) show.engine.resize(width ^= 64, bench::crowd_height);
    bench::report(state, static_cast<double>(state.range(0) * tracks_with_sizes * bench::keys_in_track),
                  "per key of place or size: the engine's resize with every dialog scaled and every shape animated");
}

// Everything at once, in all: a step of the nodes of a tenth of the shapes and of all their dialogs.
void step_of_a_tenth(benchmark::State& state) {
    const bench::Crowd crowd{.shapes = static_cast<int>(state.range(0))};
    bench::Show show(crowd);
    show.animate(a_tenth(crowd));
    show.engine.start_run();
    for (auto _ : state) {
        host::advance_time(1.0 / 60.0);
        if (!show.engine.animations().step()) throw std::runtime_error("nothing plays");
    }
}

void resize_of_a_tenth(benchmark::State& state) {
    const bench::Crowd crowd{.shapes = static_cast<int>(state.range(0)), .scaled_dialogs = true};
    bench::Show show(crowd);
    show.animate(a_tenth(crowd));
    int width = bench::crowd_width;
    for (auto _ : state) show.engine.resize(width ^= 64, bench::crowd_height);
}

}  // namespace

BENCHMARK(step_of_a_tenth)->Arg(5000)->Arg(10000)->Arg(20000)->Arg(40000)->Unit(benchmark::kMillisecond);
BENCHMARK(resize_of_a_tenth)->Arg(5000)->Arg(10000)->Arg(20000)->Arg(40000)->Unit(benchmark::kMillisecond);
BENCHMARK(animate)->Apply(bench::crowd_sizes);
BENCHMARK(rekey)->Apply(bench::crowd_sizes);
