#pragma once

struct lua_State;
class XSystem;

namespace host {

struct RegisteredFunction;

/// Makes a registered function a global under its name, its values checked and converted by their kinds. A vector is a
/// list with members x, y, z, w and r, g, b, a. The function and the system must outlive the state. Raises Lua errors.
void bind_function(lua_State* state, RegisteredFunction& function, XSystem* system, bool unwritten_is_nil);

}  // namespace host
