#include "host/core/clock.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "engine/services.h"

namespace {

constexpr double ticks_per_second = 1e9;
// Some centuries; far from what the tick count can hold.
constexpr double latest = 1e10;

struct Clock {
    bool real = true;
    double settable_seconds = 0.0;
};
Clock clock_in_use;

double valid_time(double seconds) { return seconds > 0.0 ? std::min(seconds, latest) : 0.0; }

// Counts from the first question: the module keeps seconds as 32-bit floats, which would step visibly if the count
// began when the machine was started.
unsigned long long real_ticks() {
    using std::chrono::steady_clock;
    static const steady_clock::time_point start = steady_clock::now();
    return static_cast<unsigned long long>(std::chrono::nanoseconds(steady_clock::now() - start).count());
}

}  // namespace

long long time_guard::s_freq = static_cast<long long>(ticks_per_second);

unsigned long long time_guard::get_curr_time_async() {
    if (clock_in_use.real) return real_ticks();
    return static_cast<unsigned long long>(std::llround(clock_in_use.settable_seconds * ticks_per_second));
}

namespace host {

void use_real_time() { clock_in_use.real = true; }
void use_settable_time(double seconds) { clock_in_use = {false, valid_time(seconds)}; }
void set_time(double seconds) {
    if (!clock_in_use.real) clock_in_use.settable_seconds = valid_time(seconds);
}
void advance_time(double seconds) { set_time(clock_in_use.settable_seconds + (std::isnan(seconds) ? 0.0 : seconds)); }
double now() { return static_cast<double>(time_guard::get_curr_time_async()) / ticks_per_second; }

}  // namespace host
