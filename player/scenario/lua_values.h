#pragma once

#include <vector>

#include "player/scenario/value.h"

struct lua_State;

namespace scenario {

/// The value at a place of the stack; tables are read to their ends without their metatables. A function is entered in
/// the registry, where it stays. Throws Failure for what is no value: threads, foreign objects, tables in themselves.
Value to_value(lua_State* state, int index);
std::vector<Value> to_values(lua_State* state, int first, int last);
/// Raises a Lua error only where memory is out.
void push_value(lua_State* state, const Value& value);

}  // namespace scenario
