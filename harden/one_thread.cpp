// The module belongs to one thread. Built with -finstrument-functions, each of its functions comes by here as it is
// entered; a second thread ends the program, also one that took turns with the first, in which no sanitizer sees a
// fault.

#include <sanitizer/common_interface_defs.h>

#include <cstdio>
#include <cstdlib>

namespace {

bool has_owner = false;
thread_local bool is_owner = false;

}  // namespace

// Built-in and unordered: what it calls would come by here too, and an order would hide from the sanitizer that there
// was none.
extern "C" [[gnu::no_instrument_function]] void __cyg_profile_func_enter(void*, void*) {
    if (is_owner) return;
    if (__atomic_exchange_n(&has_owner, true, __ATOMIC_RELAXED)) {
        std::fputs("The module is entered by a second thread\n", stderr);
        __sanitizer_print_stack_trace();
        std::abort();
    }
    is_owner = true;
}

extern "C" [[gnu::no_instrument_function]] void __cyg_profile_func_exit(void*, void*) {}
