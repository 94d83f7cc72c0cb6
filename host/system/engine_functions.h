#pragma once

// What scripts can ask of this engine itself, beyond the functions that modules register: rows that are bound, and from
// which the reference is written.

#include <span>
#include <string>

struct lua_State;

namespace host {

struct EngineParam {
    const char* name;
    /// As Lua calls it, or "any".
    const char* type;
};

struct EngineFunction {
    const char* name;
    /// Its first upvalue is the Engine.
    int (*body)(lua_State*);
    std::span<const EngineParam> params;
    /// Types of what it gives, "string, number"; empty for nothing.
    const char* results;
    /// What it does, in a sentence or two.
    const char* text;
};

/// "name(first, second)".
std::string signature_of(const EngineFunction& function);

/// The 3D scene behind the dialogs, and the animations of the project; each in the order of the reference.
std::span<const EngineFunction> scene_functions();
std::span<const EngineFunction> animation_functions();

/// Makes all of them globals of a state. The argument is the Engine, which must outlive the state. For
/// ScriptManager::set_extra_functions.
int add_engine_functions(lua_State* state);

}  // namespace host
