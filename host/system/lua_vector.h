#pragma once

// Vectors as scripts get them: a list of numbers that also answers to names and can be printed.

struct lua_State;

namespace host {

/// What the components of a vector are called, as a place and as a colour.
inline constexpr const char* vector_names[2][4] = {{"x", "y", "z", "w"}, {"r", "g", "b", "a"}};

/// Makes vectors known to a state, once; ahead of the first push_vector. Both raise Lua errors.
void define_vectors(lua_State* state);
/// Pushes a vector of up to four components.
void push_vector(lua_State* state, const float* components, int count);

}  // namespace host
