// What a frame costs with its pixels, drawn by SDL's software renderer as on a machine without a display.

#include "host/core/sdl_device.h"
#include "measure.h"
#include "scene/show.h"

namespace {

using bench::Crowd;

void software_frame(benchmark::State& state) {
    const Crowd crowd{.shapes = static_cast<int>(state.range(0)), .pictures = Crowd::STATIC};
    const bench::ScratchFolder folder;
    const std::string path = folder.file("crowd.sgui");
    const std::unique_ptr<host::SdlDevice> device = host::SdlDevice::in_memory();
    if (!device) return state.SkipWithError("there is no software renderer");
    bench::Show show(*device);
    std::string error;
    if (!bench::write_crowd_pictures(path, error) ||
        !show.engine.open_document(bench::crowd_document(crowd), path, error))
        return state.SkipWithError(error.c_str());
    show.engine.start_run();
    show.engine.frame(0.0);
    const std::uint64_t uploads = device->uploads();
    for (auto _ : state) show.engine.frame(0.0);
    if (uploads == 0 || device->uploads() != uploads)
        return state.SkipWithError("a frame that stays the same hands pictures to the renderer");
}

}  // namespace

BENCHMARK(software_frame)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
