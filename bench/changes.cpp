// What it costs to take items away, to bring them to the front and to the back, and to look them up, all of a project
// one after the other.

#include <algorithm>
#include <random>

#include "engine/numbers.h"
#include "measure.h"
#include "scene/show.h"

namespace {

using bench::Crowd;

enum class Order { FIRST_TO_LAST, LAST_TO_FIRST, SHUFFLED };

std::vector<int> shape_numbers(int count, Order order) {
    std::vector<int> numbers(static_cast<std::size_t>(count));
    for (int number = 0; number < count; ++number) numbers[static_cast<std::size_t>(number)] = number;
    if (order == Order::LAST_TO_FIRST) std::reverse(numbers.begin(), numbers.end());
    if (order == Order::SHUFFLED) std::shuffle(numbers.begin(), numbers.end(), std::mt19937(1));
    return numbers;
}

void delete_all(benchmark::State& state, bool in_one_dialog, Order order) {
    const int shapes = static_cast<int>(state.range(0));
    const host::ProjectDocument document =
        bench::crowd_document({.shapes = shapes, .shapes_in_dialog = in_one_dialog ? shapes : 100});
    bench::Show show;
    host::Scene& scene = show.engine.scene();
    const std::vector<int> numbers = shape_numbers(shapes, order);
    std::string error;
    for (auto _ : state) {
        if (!show.engine.open_document(document, {}, error)) return state.SkipWithError(error.c_str());
        std::vector<IActor*> actors;
        actors.reserve(numbers.size());
        for (int number : numbers) actors.push_back(scene.search_actor_by_guid(bench::crowd_shape_id(number)));
        state.SetIterationTime(bench::seconds_of([&] {
            for (IActor* actor : actors) scene.delete_actor(actor);
        }));
    }
}

void delete_first(benchmark::State& state) {
    delete_all(state, false, Order::FIRST_TO_LAST);
    bench::report(state, static_cast<double>(state.range(0)), "every shape deleted one by one, the oldest first");
}

void delete_last(benchmark::State& state) {
    delete_all(state, false, Order::LAST_TO_FIRST);
    bench::report(state, static_cast<double>(state.range(0)), "the same, the newest first");
}

void delete_any(benchmark::State& state) {
    delete_all(state, true, Order::SHUFFLED);
    bench::report(state, static_cast<double>(state.range(0)), "the same in any order, all in one dialog");
}

void relayer(benchmark::State& state) {
    const int shapes = static_cast<int>(state.range(0));
    bench::Show show(Crowd{.shapes = shapes, .shapes_in_dialog = shapes});
    host::LuaBox box({host::LuaLimits().memory_bytes, 0, 0.0});
    std::string error;
    if (!show.engine.scripts().bind_functions(box, false, error)) return state.SkipWithError(error.c_str());
    // 7 has no part in the numbers of shapes, so each of them comes once.
    const std::string text = "for i = 0, " + std::to_string(shapes - 1) +
                             " do gui_script_set_ctrl_layer('shape ' .. i * 7 % " + std::to_string(shapes) +
                             ", i & 1) end";
    host::LuaError failure;
    for (auto _ : state) {
        if (!box.run(text, failure)) return state.SkipWithError(failure.message.c_str());
    }
    bench::report(state, static_cast<double>(shapes),
                  "per call from Lua: each shape of one dialog brought to the front or to the back of it in turn");
}

void find_by_name(benchmark::State& state) {
    bench::Show show(Crowd{.shapes = static_cast<int>(state.range(0))});
    std::vector<std::wstring> names;
    for (int number : shape_numbers(static_cast<int>(state.range(0)), Order::SHUFFLED))
        names.push_back(bench::crowd_shape_name(number));
    for (auto _ : state) {
        for (const std::wstring& name : names) {
            if (!show.engine.scene().search_item_by_name(name, ITEM_TYPE_SHAPE))
                return state.SkipWithError("a shape is not found");
        }
    }
    bench::report(state, static_cast<double>(state.range(0)),
                  "each shape of the scene found by its name, in any order");
}

}  // namespace

BENCHMARK(delete_first)->Apply(bench::crowd_sizes)->UseManualTime();
BENCHMARK(delete_last)->Apply(bench::crowd_sizes)->UseManualTime();
BENCHMARK(delete_any)->Apply(bench::crowd_sizes)->UseManualTime();
BENCHMARK(relayer)->Apply(bench::crowd_sizes);
BENCHMARK(find_by_name)->Apply(bench::crowd_sizes);
