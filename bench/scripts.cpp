// What a call of a script function costs, Lua and both libraries included.

#include "measure.h"
#include "scene/show.h"

namespace {

constexpr int calls_a_run = 1000;

void call(benchmark::State& state, const std::string& expression, const char* includes) {
    const int shapes = static_cast<int>(state.range(0));
    bench::Show show(bench::Crowd{.shapes = shapes});
    host::LuaBox box({host::LuaLimits().memory_bytes, 0, 0.0});
    std::string error;
    if (!show.engine.scripts().bind_functions(box, false, error)) return state.SkipWithError(error.c_str());
    // Sixteen names from the whole scene.
    const std::string text = "local names = {} for i = 0, 15 do names[i] = 'shape ' .. i * " + std::to_string(shapes) +
                             " // 16 end for i = 1, " + std::to_string(calls_a_run) +
                             " do local name = names[i & 15] local got = " + expression + " end";
    host::LuaError failure;
    for (auto _ : state) {
        if (!box.run(text, failure)) return state.SkipWithError(failure.message.c_str());
    }
    bench::report(state, calls_a_run, includes);
}

void script_get(benchmark::State& state) {
    call(state, "get_ctrl_align(name)", "per call from Lua: get_ctrl_align of one of sixteen shapes by its name");
}

void script_set_rect(benchmark::State& state) {
    call(state, "set_ctrl_rect(name, {10, 10, 200, 100})",
         "per call from Lua, the table of four numbers included: set_ctrl_rect of one of sixteen shapes by its name");
}

}  // namespace

BENCHMARK(script_get)->Apply(bench::crowd_sizes);
BENCHMARK(script_set_rect)->Apply(bench::crowd_sizes);
