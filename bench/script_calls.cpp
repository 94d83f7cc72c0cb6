// What a call of a script function costs, Lua and both libraries included, in scenes of one and of ten thousand shapes.
// A getter is to stay below a microsecond.

#include <benchmark/benchmark.h>

#include "host/core/recording_device.h"
#include "host/system/engine.h"

namespace {

constexpr int calls_a_run = 1000;

CGuid numbered_id(int number) {
    std::wstring text = L"00000000-0000-0000-0000-000000000000";
    const std::wstring digits = std::to_wstring(number);
    text.replace(text.size() - digits.size(), digits.size(), digits);
    return CGuid(text.c_str());
}

host::ProjectItem item(unsigned long type, int number, const std::wstring& name) {
    host::ProjectItem made;
    made.type = type;
    made.id = numbered_id(number);
    made.name = name;
    made.data.set("m_rect", CRect(10, 10, 200, 100));
    made.data.set("m_order_num", number);
    return made;
}

host::ProjectDocument dialog_with(int shapes) {
    host::ProjectDocument project;
    project.items.push_back(item(ITEM_TYPE_DIALOG, 0, L"dialog"));
    for (int number = 1; number <= shapes; ++number) {
        // The last is the one that is asked for.
        const std::wstring name = number == shapes ? L"control" : L"control " + std::to_wstring(number);
        project.items.push_back(item(ITEM_TYPE_SHAPE, number, name));
        project.items.back().parent = project.items.front().id;
        project.items.back().data.set("m_title", tstringW(L"欢迎 welcome"));
    }
    return project;
}

void call(benchmark::State& state, const char* expression) {
    host::RecordingDevice device;
    host::Engine engine(device, L"");
    std::string error;
    host::LuaBox box({host::LuaLimits().memory_bytes, 0, 0.0});
    engine.new_project(1280, 720);
    if (!engine.load_module(MODULE_PATH, error) ||
        !engine.open_document(dialog_with(static_cast<int>(state.range(0))), "", error) ||
        !engine.scripts().bind_functions(box, false, error)) {
        state.SkipWithError(error.c_str());
        return;
    }
    const std::string text =
        "for i = 1, " + std::to_string(calls_a_run) + " do local got = " + std::string(expression) + " end";
    host::LuaError failure;
    for (auto step : state) {
        if (box.run(text, failure)) continue;
        state.SkipWithError(failure.message.c_str());
        break;
    }
    state.SetItemsProcessed(state.iterations() * calls_a_run);
    state.counters["call"] = benchmark::Counter(
        static_cast<double>(calls_a_run), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

}  // namespace

BENCHMARK_CAPTURE(call, get_ctrl_rect, "get_ctrl_rect('control')")->Arg(1)->Arg(10000);
BENCHMARK_CAPTURE(call, get_ctrl_title, "get_ctrl_title('control')")->Arg(1)->Arg(10000);
BENCHMARK_CAPTURE(call, get_ctrl_align, "get_ctrl_align('control')")->Arg(1)->Arg(10000);
BENCHMARK_CAPTURE(call, an_unknown_name, "get_ctrl_align('nobody')")->Arg(1)->Arg(10000);
BENCHMARK_CAPTURE(call, set_ctrl_rect, "set_ctrl_rect('control', {10, 10, 200, 100})")->Arg(1)->Arg(10000);
BENCHMARK_CAPTURE(call, move_wnd, "gui_script_move_wnd('dialog', 0, 0, {0, 0, 0}, {i % 50, 10, 0})")->Arg(1);
