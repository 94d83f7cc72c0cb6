#pragma once

// Stands between this program and its memory: the operator new of all its parts, and what the libraries under the host
// ask for (SDL, FreeType, pugixml, Lua). Counts, and makes a chosen one fail.

namespace harden {

/// From here to the end of its life what this thread asks for is counted, and that with the number `at`, from 0, fails.
class ShortMemory {
public:
    static constexpr long never = -1;
    /// With `lasts` all behind that one fail too, until this object is gone.
    explicit ShortMemory(long at = never, bool lasts = false);
    ShortMemory(const ShortMemory&) = delete;
    ShortMemory& operator=(const ShortMemory&) = delete;
    ~ShortMemory();
    long count() const;
    /// That something has failed.
    bool was_felt() const;
};

/// Puts itself between SDL, pugixml and their memory: ahead of the first call of either.
void watch_library_memory();

/// What the program holds at the moment, in bytes.
long long live_bytes();

}  // namespace harden
