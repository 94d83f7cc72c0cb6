#pragma once

struct lua_State;

namespace scenario {

/// Adds what Lua's base library has and the closed box of shape scripts lacks: `load` of texts, and `collectgarbage`.
/// May raise a Lua error.
void open_base_functions(lua_State* L);

}  // namespace scenario
