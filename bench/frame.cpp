// What a frame costs that shows the same scene as the one before.

#include "host/core/clock.h"
#include "layout/shape.h"
#include "measure.h"
#include "module/manager.h"
#include "module/setting.h"
#include "scene/show.h"
#include "support/allocations.h"

namespace {

using bench::Crowd;

CSimpleGUIManager& manager_of(bench::Show& show) { return static_cast<CSimpleGUIManager&>(*show.engine.module()); }

template <class BeforeFrame>
void compose(benchmark::State& state, bench::Show& show, BeforeFrame before_frame) {
    const auto frame = [&] {
        before_frame();
        show.engine.frame(0.0);
    };
    frame();
    const std::size_t calls = show.device.calls;
    frame();
    state.counters["draw_calls"] = static_cast<double>(show.device.calls - calls);
    const std::size_t allocated = allocations();
    for (auto _ : state) frame();
    state.counters["allocations"] = static_cast<double>(allocations() - allocated);
}

void compose_still(benchmark::State& state) {
    bench::Show show(Crowd{.shapes = static_cast<int>(state.range(0)), .pictures = Crowd::STATIC});
    show.engine.start_run();
    compose(state, show, [] {});
    bench::report(state, static_cast<double>(state.range(0)),
                  "a whole frame of a running project into the null device: rectangles, static pictures, text");
}

// Each button is on its way to the hover picture, at another moment of the fade in each frame.
void compose_fading(benchmark::State& state) {
    bench::Show show(Crowd{.shapes = static_cast<int>(state.range(0)), .pictures = Crowd::BUTTONS});
    show.engine.start_run();
    CSimpleGUIManager& manager = manager_of(show);
    for (CSimpleGUIShape* shape : manager.m_shapes) {
        std::copy(shape->m_fade_now, shape->m_fade_now + 4, shape->m_fade_start);
        shape->m_texture_mode = MODE_HOVER;
        shape->m_mode_time = 0.0f;
    }
    constexpr int moments = 32;
    const double step = static_cast<double>(manager.m_setting->m_ani_trans_time) / (moments + 2);
    int moment = 0;
    compose(state, show, [&] { host::set_time(step * ++moment), moment %= moments; });
    bench::report(
        state, static_cast<double>(state.range(0)),
        "a whole frame into the null device; every shape a fading button with three layers, a tenth with text");
}

}  // namespace

BENCHMARK(compose_still)->Apply(bench::crowd_sizes);
BENCHMARK(compose_fading)->Apply(bench::crowd_sizes);
