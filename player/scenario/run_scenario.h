#pragma once

#include <string>
#include <vector>

namespace scenario {

struct RunOptions {
    /// The Lua file.
    std::string file;
    /// What the file gets as ARGS.
    std::vector<std::string> arguments;
    /// The module's library.
    std::string module;
};

}  // namespace scenario

/// Carries a scenario out. True if it came to its end, else `error` is one line, "FILE:LINE: reason". The entry point
/// of the library.
extern "C" bool sgui_run_scenario(const scenario::RunOptions& options, std::string& error);
