#include "player/scenario/run_scenario.h"

#include <iostream>

#include "host/system/lua_repeatable.h"
#include "player/scenario/host_table.h"
#include "player/scenario/lua_file.h"

namespace scenario {

namespace {

// Far above what a scenario needs; beyond it something runs away.
constexpr std::size_t most_memory = std::size_t{2} << 30;

void print_line(const std::string& line) { std::cout << line << '\n'; }

// What scripts of shapes do wrong ends the script, not the scenario: a show would go on too.
void listen_to_scripts(host::Engine& engine) {
    engine.scripts().on_error = [](const std::string& line) { std::cerr << "sgui: script: " << line << '\n'; };
    engine.scripts().on_print = print_line;
    engine.scripts().repeatable = true;
    engine.on_message = print_line;
}

void run(const RunOptions& options) {
    const std::string text = read_lua_file(options.file);
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
