// What the same work costs in scenes that are laid out otherwise than the usual one.

#include <stdexcept>

#include "host/core/clock.h"
#include "measure.h"
#include "scene/show.h"

namespace {

using bench::Crowd;

constexpr Crowd one_spot{.on_one_spot = true};
constexpr Crowd one_dialog{.shapes_in_dialog = 1 << 30};

Crowd sized(Crowd crowd, const benchmark::State& state) {
    crowd.shapes = static_cast<int>(state.range(0));
    return crowd;
}

void frame_of(benchmark::State& state, const Crowd& crowd) {
    bench::Show show(sized(crowd, state));
    show.engine.start_run();
    show.engine.frame(0.0);
    for (auto _ : state) show.engine.frame(0.0);
}

// To other shapes and back.
void move_over(benchmark::State& state, const Crowd& crowd) {
    bench::Show show(sized(crowd, state));
    show.engine.start_run();
    int x = 70;
    for (auto _ : state) show.engine.mouse(host::InputKind::MOVE, x ^= 256, 50);
}

void resize_of(benchmark::State& state, const Crowd& crowd) {
    bench::Show show(sized(crowd, state));
    int width = bench::crowd_width;
    for (auto _ : state) show.engine.resize(width ^= 64, bench::crowd_height);
}

void open_and_close(benchmark::State& state, const Crowd& crowd) {
    const bench::ScratchFolder folder;
    const std::string path = folder.file("crowd.sgui");
    bench::write_crowd(sized(crowd, state), path);
    bench::Show show;
    std::string error;
    for (auto _ : state) {
        if (!show.engine.open_project(path, error)) return state.SkipWithError(error.c_str());
        show.engine.new_project(bench::crowd_width, bench::crowd_height);
    }
}

// Every shape and its keys, and the frame behind it.
void animated_resize(benchmark::State& state) {
    const Crowd crowd = sized({.scaled_dialogs = true}, state);
    bench::Show show(crowd);
    std::vector<CGuid> items;
    for (int number = 0; number < crowd.shapes; ++number) items.push_back(bench::crowd_shape_id(number));
    show.animate(items);
    show.engine.start_run();
    int width = bench::crowd_width;
    for (auto _ : state) {
        host::advance_time(1.0 / 60.0);
        show.engine.resize(width ^= 64, bench::crowd_height);
        if (!show.engine.animations().step()) throw std::runtime_error("nothing plays");
        show.engine.frame(0.0);
    }
}

void two_sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(5000)->Arg(10000)->Unit(benchmark::kMillisecond);
}

}  // namespace

BENCHMARK_CAPTURE(frame_of, one_spot, one_spot)->Apply(two_sizes);
BENCHMARK_CAPTURE(frame_of, one_dialog, one_dialog)->Apply(two_sizes);
BENCHMARK_CAPTURE(move_over, one_spot, one_spot)->Apply(two_sizes);
BENCHMARK_CAPTURE(move_over, one_dialog, one_dialog)->Apply(two_sizes);
BENCHMARK_CAPTURE(resize_of, one_spot, one_spot)->Apply(two_sizes);
BENCHMARK_CAPTURE(resize_of, one_dialog, one_dialog)->Apply(two_sizes);
BENCHMARK_CAPTURE(open_and_close, one_spot, one_spot)->Apply(two_sizes);
BENCHMARK_CAPTURE(open_and_close, one_dialog, one_dialog)->Apply(two_sizes);
BENCHMARK(animated_resize)->Apply(two_sizes);
