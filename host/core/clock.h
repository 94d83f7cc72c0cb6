#pragma once

// The time that time_guard tells: real in a window, in the caller's hand everywhere else, so that a run can be
// repeated exactly. All on one thread.

namespace host {

/// Time runs by itself from here on. The state at the start of a program.
void use_real_time();
/// Time stands at `seconds` until it is moved. Negative times and what is no number count as 0.
void use_settable_time(double seconds);
/// Both change nothing while real time runs.
void set_time(double seconds);
void advance_time(double seconds);
/// Seconds on the clock in use: since the first question under real time.
double now();

}  // namespace host
