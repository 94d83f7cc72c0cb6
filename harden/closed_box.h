#pragma once

namespace harden {

/// From here on this process may compute, ask for memory, tell the time, write to what is open, and end. False where
/// the system can't watch that.
bool forbid_all_but_computing();
/// How often it tried something else, which then failed.
int forbidden_calls();
/// Number of the last such call of the system.
int last_forbidden_call();

}  // namespace harden
