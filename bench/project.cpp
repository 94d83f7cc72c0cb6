// What opening, saving and closing a project cost, and what it holds of memory while it is open. Files lie in memory
// where the system has such a place, so that no disk is measured.

#include <malloc.h>

#include <map>
#include <stdexcept>

#include "measure.h"
#include "scene/show.h"

namespace {

void check(bool done, const std::string& error) {
    if (!done) throw std::runtime_error(error);
}

class CrowdFile {
public:
    explicit CrowdFile(int shapes) { bench::write_crowd({.shapes = shapes}, path); }

private:
    bench::ScratchFolder m_folder;

public:
    const std::string path = m_folder.file("crowd.sgui");
    const std::string copy = m_folder.file("copy.sgui");
};

// Written once for all benches and repetitions.
const CrowdFile& file_of(const benchmark::State& state) {
    static std::map<int, CrowdFile> files;
    const int shapes = static_cast<int>(state.range(0));
    return files.try_emplace(shapes, shapes).first->second;
}

void open(benchmark::State& state) {
    const CrowdFile& file = file_of(state);
    bench::Show show;
    std::string error;
    for (auto _ : state) {
        show.engine.new_project(bench::crowd_width, bench::crowd_height);
        state.SetIterationTime(bench::seconds_of([&] { check(show.engine.open_project(file.path, error), error); }));
    }
    check(show.engine.warnings().empty(), "a project with warnings");
    bench::report(state, static_cast<double>(state.range(0)),
                  "reading, checking and parsing the file, 32 properties a shape, making all items, laying them out");
}

void save(benchmark::State& state) {
    const CrowdFile& file = file_of(state);
    bench::Show show;
    std::string error;
    check(show.engine.open_project(file.path, error), error);
    for (auto _ : state) check(show.engine.save_project(file.copy, error), error);
    bench::report(
        state, static_cast<double>(state.range(0)),
        "numbering, the tree of all items, its text, reading that back, writing, flushing and renaming the file");
}

void close(benchmark::State& state) {
    const CrowdFile& file = file_of(state);
    bench::Show show;
    std::string error;
    for (auto _ : state) {
        check(show.engine.open_project(file.path, error), error);
        state.SetIterationTime(
            bench::seconds_of([&] { show.engine.new_project(bench::crowd_width, bench::crowd_height); }));
    }
    bench::report(state, static_cast<double>(state.range(0)), "a new project in the place of the open one");
}

double bytes_in_use() {
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
}

// The counter carries bytes where the others carry seconds.
void memory(benchmark::State& state) {
    const CrowdFile& file = file_of(state);
    std::string error;
    double bytes = 0.0;
    for (auto _ : state) {
        bench::Show show;
        const double before = bytes_in_use();
        check(show.engine.open_project(file.path, error), error);
        show.engine.start_run();
        show.engine.frame(0.0);
        bytes = bytes_in_use() - before;
    }
    state.counters["bytes_per_element"] = bytes / static_cast<double>(state.range(0));
    state.SetLabel("heap of module and host that an open project holds after its first frame, as malloc counts it");
}

}  // namespace

BENCHMARK(open)->Apply(bench::crowd_sizes)->UseManualTime();
BENCHMARK(save)->Apply(bench::crowd_sizes);
BENCHMARK(close)->Apply(bench::crowd_sizes)->UseManualTime();
BENCHMARK(memory)->Apply(bench::crowd_sizes)->Iterations(1);
