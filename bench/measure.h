#pragma once

#include <benchmark/benchmark.h>

#include <ctime>

namespace bench {

/// The numbers of shapes at which costs are looked at, to see how they grow.
inline void crowd_sizes(benchmark::internal::Benchmark* benchmark) {
    for (int shapes : {100, 1000, 10000, 50000}) benchmark->Arg(shapes);
    benchmark->Unit(benchmark::kMicrosecond);
}

/// Closes a bench: an iteration did `count` things, whose cost is asked for, and `includes` says what was timed.
inline void report(benchmark::State& state, double count, const char* includes) {
    state.counters["seconds_per_element"] =
        benchmark::Counter(count, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.SetLabel(includes);
}

/// For benches with UseManualTime, where something untimed goes ahead of each iteration. The processor's time for this
/// thread: waiting for disks and for other programs is no cost of ours.
template <class Work>
double seconds_of(Work work) {
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    };
    const double begin = now();
    work();
    return now() - begin;
}

}  // namespace bench
