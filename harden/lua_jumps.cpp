// Lua leaves a function that failed by the system's checked jump. The thread sanitizer does not know that one: it goes
// on counting the frames that were jumped over, until it has no room for more. It knows the plain one.

#undef _FORTIFY_SOURCE
#include <csetjmp>

extern "C" [[noreturn, gnu::visibility("default")]] void __longjmp_chk(std::jmp_buf place, int value) {
    std::longjmp(place, value);
}
