#include "player/scenario/lua_file.h"

#include <fstream>
#include <sstream>

#include "player/scenario/value.h"

namespace scenario {

std::string read_lua_file(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    if (!file || !text) throw Failure(path + ": can't be read");
    std::string all = text.str();
    constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
    if (all.starts_with(byte_order_mark)) all.erase(0, byte_order_mark.size());
    // A first line for the shell is no Lua; its line end stays, so that lines keep their numbers.
    if (all.starts_with('#')) all.erase(0, std::min(all.find('\n'), all.size()));
    return all;
}

}  // namespace scenario
