#pragma once

struct lua_State;

namespace host {

/// Makes what a script does the same in every run: pairs and next go in the order of the keys (numbers, then
/// texts), and nothing shows an address. Lua itself takes both from where its memory happens to lie. Raises Lua errors.
void open_repeatable_functions(lua_State* state);

/// Makes math.random give the same numbers in every run.
int seed_with_constant(lua_State* state);

/// Pushes the text that print shows for the value at `index`.
void push_shown_text(lua_State* state, int index);

}  // namespace host
