#pragma once

struct lua_State;

namespace host {

/// Opens base, math, string, table and utf8 without what could leave the box, harm it, or run for ever out of sight of
/// the instruction limit. Raises Lua errors: call it where they are caught.
void open_closed_libraries(lua_State* state);

}  // namespace host
