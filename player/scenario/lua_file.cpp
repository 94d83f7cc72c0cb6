#include "player/scenario/lua_file.h"

#include <algorithm>
#include <cstdint>

#include "host/core/project_disk.h"
#include "player/scenario/value.h"

namespace scenario {

std::string read_lua_file(const std::string& path) {
    std::string all, reason;
    if (!host::read_whole_file(path, SIZE_MAX, all, reason)) throw Failure(path + ": can't be read: " + reason);
    constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
    if (all.starts_with(byte_order_mark)) all.erase(0, byte_order_mark.size());
    // A first line for the shell is no Lua; its line end stays, so that lines keep their numbers.
    if (all.starts_with('#')) all.erase(0, std::min(all.find('\n'), all.size()));
    return all;
}

}  // namespace scenario
