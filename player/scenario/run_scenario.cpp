#include "player/scenario/run_scenario.h"

#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>

#include "host/system/lua_repeatable.h"
#include "player/scenario/host_table.h"

namespace scenario {

namespace {

// Far above what a scenario needs; beyond it something runs away.
constexpr std::size_t most_memory = std::size_t{2} << 30;

std::string read_file(const std::string& path) {
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

void print_line(const std::string& line) { std::cout << line << '\n'; }

// What scripts of shapes do wrong ends the script, not the scenario: a show would go on too.
void listen_to_scripts(host::Engine& engine) {
    engine.scripts().on_error = [](const std::string& line) { std::cerr << "sgui: script: " << line << '\n'; };
    engine.scripts().on_print = print_line;
    engine.scripts().repeatable = true;
    engine.on_message = print_line;
}

void run(const RunOptions& options) {
    const std::string text = read_file(options.file);
    host::LuaBox lua({most_memory, 0, 0.0});
    lua.on_print = print_line;
    Scenario scenario(lua, options.module);
    listen_to_scripts(scenario.engine);
    bind_host(scenario, options.arguments);
    host::LuaError error;
    if (lua.protect(&host::seed_with_constant, nullptr, error) && lua.run(text, error)) return;
    const std::string line = error.line > 0 ? std::to_string(error.line) + ": " : " ";
    throw Failure(options.file + ":" + line + error.message);
}

}  // namespace

}  // namespace scenario

bool sgui_run_scenario(const scenario::RunOptions& options, std::string& error) try {
    scenario::run(options);
    std::cout.flush();
    return true;
} catch (const std::exception& failure) {
    std::cout.flush();
    error = failure.what();
    return false;
}
