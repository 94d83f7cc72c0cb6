// Any text as a script, in a box with little of everything: it ends with a message or well, and the next one works.

#include "fuzz/stage.h"
#include "host/system/lua_box.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    host::LuaLimits limits;
    limits.memory_bytes = 4u << 20;
    limits.instructions = 100000;
    limits.seconds = 0.2;
    host::LuaBox box(limits);
    host::LuaError error;
    const bool good = box.run({reinterpret_cast<const char*>(data), size}, error);
    fuzz::must(good == error.message.empty(), "what fails says why");
    fuzz::must(box.memory_used() <= limits.memory_bytes, "memory is bounded");
    host::LuaError none;
    // The script may have taken away whatever it found, but not the language.
    fuzz::must(box.run("local t = {} for i = 1, 10 do t[i] = i .. 'x' end", none), none.message.c_str());
    return 0;
}
