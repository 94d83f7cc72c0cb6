#include "player/libraries.h"

#include <filesystem>

namespace player {

namespace fs = std::filesystem;

// Beside the program, as the build lays it, and where an installation puts libraries.
std::string library_beside_program(const std::string& name) {
    std::error_code ignored;
    const fs::path folder = fs::read_symlink("/proc/self/exe", ignored).parent_path();
    for (const char* place : {"../lib", ".", "../lib/x86_64-linux-gnu", "../lib/aarch64-linux-gnu", "../lib64"}) {
        const fs::path candidate = folder / place / name;
        if (fs::exists(candidate, ignored)) return candidate.lexically_normal().string();
    }
    return name;
}

}  // namespace player
