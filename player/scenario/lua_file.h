#pragma once

#include <string>

namespace scenario {

/// The text of a Lua file, without a byte order mark or a first line for the shell. Throws Failure.
std::string read_lua_file(const std::string& path);

}  // namespace scenario
