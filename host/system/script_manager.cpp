#include "host/system/script_manager.h"

#include <algorithm>
#include <cstdio>
#include <lua.hpp>
#include <new>

#include "host/core/text_conversion.h"
#include "host/system/lua_binding.h"
#include "host/system/lua_repeatable.h"

namespace host {
namespace {

constexpr std::size_t most_params = 16;

std::string title_of(const tstringW& text) { return to_utf8(std::wstring_view(text).substr(0, text.find(L';'))); }

bool is_usable(const xfunc_desc& function) {
    const auto empty = [](const CMyComPtr<xparam_desc>& param) { return !param; };
    return function.func && !function.func_name.empty() && function.params.size() <= most_params &&
           std::none_of(function.params.begin(), function.params.end(), empty);
}

struct Binding {
    const std::vector<std::unique_ptr<RegisteredFunction>>* functions;
    XSystem* system;
    bool unwritten_is_nil;
};

int bind_all(lua_State* state, const Binding& binding) {
    for (const auto& function : *binding.functions)
        bind_function(state, *function, binding.system, binding.unwritten_is_nil);
    return 0;
}

void print_line(std::FILE* file, const std::string& line) {
    std::fwrite(line.data(), 1, line.size(), file);
    std::fputc('\n', file);
}

}  // namespace

void ScriptManager::register_xfun(xfunc_desc function, tstringW category) {
    if (!is_usable(function)) return;
    RegisteredFunction fresh{function, std::move(category), {}, {}};
    fresh.desc.system = m_system;
    fresh.name = to_utf8(fresh.desc.func_name);
    for (const auto& param : fresh.desc.params) fresh.titles.push_back(title_of(param->text));
    for (const auto& known : m_functions) {
        if (known->name != fresh.name) continue;
        // In place: boxes know the function by its address.
        *known = std::move(fresh);
        return;
    }
    m_functions.push_back(std::make_unique<RegisteredFunction>(std::move(fresh)));
}

void ScriptManager::forget_functions() {
    reset();
    m_functions.clear();
}

bool ScriptManager::bind_functions(LuaBox& box, bool unwritten_is_nil, std::string& error) {
    Binding binding{&m_functions, m_system, unwritten_is_nil};
    LuaError failure;
    const bool good = box.protect(
        [](lua_State* state) { return bind_all(state, *static_cast<const Binding*>(lua_touserdata(state, 1))); },
        &binding, failure);
    if (!good) error = failure.message;
    return good;
}

void ScriptManager::set_extra_functions(int (*body)(lua_State*), void* argument) {
    m_extra = body;
    m_extra_argument = argument;
}

bool ScriptManager::reset() {
    if (m_box && m_box->is_running()) return false;
    m_box.reset();
    return true;
}

// Whole or not at all: one without its functions would fail every script of the run.
LuaBox* ScriptManager::box(LuaError& error) {
    if (m_box) return m_box.get();
    auto fresh = std::make_unique<LuaBox>();
    fresh->on_print = [this](const std::string& line) { on_print ? on_print(line) : print_line(stdout, line); };
    if (!bind_functions(*fresh, false, error.message)) return nullptr;
    if (repeatable && !fresh->protect(&seed_with_constant, nullptr, error)) return nullptr;
    if (m_extra && !fresh->protect(m_extra, m_extra_argument, error)) return nullptr;
    m_box = std::move(fresh);
    return m_box.get();
}

std::wstring ScriptManager::name_of(const ScriptPlace& place) const {
    const std::wstring present = owner_name ? owner_name(place.owner_id) : std::wstring();
    return present.empty() ? std::wstring(place.owner_name) : present;
}

void ScriptManager::run(const std::string& text, const ScriptPlace& place) {
    const std::wstring owner = name_of(place);
    if (on_run) on_run(owner, place.event);
    LuaError error;
    try {
        LuaBox* const used = box(error);
        if (used && used->run(text, error)) return;
    } catch (const std::bad_alloc&) {
        error = {0, "out of memory"};
    }
    std::string line = to_utf8(owner);
    if (!place.event.empty()) line += (line.empty() ? "" : ", ") + place.event;
    if (error.line > 0) line += (line.empty() ? "" : ", ") + ("line " + std::to_string(error.line));
    line += (line.empty() ? "" : ": ") + error.message;
    on_error ? on_error(line) : print_line(stderr, line);
}

}  // namespace host
