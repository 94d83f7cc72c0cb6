#pragma once

// The scenario interface: the table `host` of a Lua file drives the engine and plays the part of an editor. This folder
// alone of the player links the module; it is a library of its own, which `sgui run` loads. Values cross between Lua
// and C++ as JSON values, so that no function but those of lua_values touches a Lua stack. May include the host and
// the module's exported classes.

#include <array>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>

#include "engine/guid.h"
#include "engine/rect.h"
#include "engine/text.h"
#include "engine/vectors.h"

namespace scenario {

/// Null is nil; a list without members stands for an empty table of either kind.
using Value = nlohmann::json;

/// What a scenario did wrong, or what it found to be wrong. Becomes a Lua error at the line that called.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

Value value_of(bool flag);
Value value_of(int number);
Value value_of(float number);
Value value_of(const CRect& rect);
Value value_of(const VEC2& point);
Value value_of(const VEC4& color);
Value value_of(const CGuid& id);
Value value_of(const std::wstring& text);
template <std::size_t Count>
Value value_of(const float (&numbers)[Count]) {
    return Value(std::vector<float>(numbers, numbers + Count));
}

/// Each stores the value, or throws Failure with `what` in front, which says where the value stood. Truth values and
/// whole numbers stand for each other where the number is 0 or 1.
void read_value(const Value& value, const std::string& what, bool& flag);
void read_value(const Value& value, const std::string& what, int& number);
void read_value(const Value& value, const std::string& what, float& number);
void read_value(const Value& value, const std::string& what, double& number);
void read_value(const Value& value, const std::string& what, CRect& rect);
void read_value(const Value& value, const std::string& what, VEC2& point);
void read_value(const Value& value, const std::string& what, VEC4& color);
void read_value(const Value& value, const std::string& what, CGuid& id);
void read_value(const Value& value, const std::string& what, std::string& text);
void read_value(const Value& value, const std::string& what, tstringW& text);
void read_numbers(const Value& value, const std::string& what, float* numbers, std::size_t count);
template <std::size_t Count>
void read_value(const Value& value, const std::string& what, float (&numbers)[Count]) {
    read_numbers(value, what, numbers, Count);
}

/// A function of the scenario is carried as a place in the Lua registry.
Value function_value(int reference);
/// The place, or -1 for any other value.
int function_reference(const Value& value);

/// The value as JSON text with sorted keys and the shortest numbers that read back the same; what is not finite is
/// null.
std::string json_text(const Value& value);
/// For messages: the same, but cut where it gets long.
std::string short_text(const Value& value);

}  // namespace scenario
