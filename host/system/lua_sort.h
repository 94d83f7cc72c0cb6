#pragma once

struct lua_State;

namespace host {

/// table.sort, without the two faults of Lua's own in a box: that one takes its pivots from the clock, so that equal
/// elements come out in another order each time, and no limit reaches into it. Equal elements keep their order.
int sort_table(lua_State* L);

}  // namespace host
