// expect, and values as text.

#include <cmath>
#include <lua.hpp>
#include <optional>

#include "player/scenario/calls.h"

namespace scenario {

namespace {

/// Where two values differ first.
struct Difference {
    std::string path;
    Value got;
    Value wanted;
};

bool same_number(const Value& got, const Value& wanted) {
    if (got.is_number_integer() && wanted.is_number_integer()) return got == wanted;
    const double a = got.get<double>();
    const double b = wanted.get<double>();
    return a == b || (std::isnan(a) && std::isnan(b));
}

// Members hold truth values as numbers or as truth values; who compares need not know which.
bool same_truth(const Value& got, const Value& wanted) {
    if (got.is_boolean() == wanted.is_boolean()) return false;
    const Value& number = got.is_boolean() ? wanted : got;
    return number == (got.is_boolean() ? got : wanted).get<int>();
}

std::optional<Difference> difference(const Value& got, const Value& wanted, const std::string& path);

std::optional<Difference> list_difference(const Value& got, const Value& wanted, const std::string& path) {
    const std::size_t length = std::max(got.size(), wanted.size());
    for (std::size_t at = 0; at < length; ++at) {
        const Value a = at < got.size() ? got[at] : Value();
        const Value b = at < wanted.size() ? wanted[at] : Value();
        if (auto found = difference(a, b, path + "[" + std::to_string(at + 1) + "]")) return found;
    }
    return std::nullopt;
}

std::optional<Difference> field_difference(const Value& got, const Value& wanted, const std::string& path) {
    Value names = got;
    names.update(wanted);
    for (const auto& entry : names.items()) {
        const std::string& name = entry.key();
        const Value a = got.value(name, Value());
        const Value b = wanted.value(name, Value());
        if (auto found = difference(a, b, std::string(path).append(".").append(name))) return found;
    }
    return std::nullopt;
}

// An empty table is a list and a table of fields alike, so it never comes here as one of two kinds.
std::optional<Difference> difference(const Value& got, const Value& wanted, const std::string& path) {
    if (got.is_number() && wanted.is_number() && same_number(got, wanted)) return std::nullopt;
    if (same_truth(got, wanted)) return std::nullopt;
    if (got.is_array() && wanted.is_array()) return list_difference(got, wanted, path);
    if (got.is_object() && wanted.is_object()) return field_difference(got, wanted, path);
    if (!got.is_number() && got == wanted) return std::nullopt;
    return Difference{path, got, wanted};
}

// Each time that a function is handed over it gets a number of its own.
bool same_function(Scenario& scenario, const Value& got, const Value& wanted) {
    if (function_reference(got) < 0 || function_reference(wanted) < 0) return false;
    lua_State* L = scenario.lua.state();
    lua_rawgeti(L, LUA_REGISTRYINDEX, function_reference(got));
    lua_rawgeti(L, LUA_REGISTRYINDEX, function_reference(wanted));
    const bool same = lua_rawequal(L, -2, -1) != 0;
    lua_pop(L, 2);
    return same;
}

Results expect(Scenario& scenario, const Arguments& arguments) {
    if (same_function(scenario, arguments.at(0), arguments.at(1))) return {};
    const auto found = difference(arguments.at(0), arguments.at(1), "");
    if (!found) return {};
    std::string text = arguments.has(2) ? short_text(arguments.at(2)) + ": " : "";
    text += "got " + short_text(arguments.at(0)) + ", wanted " + short_text(arguments.at(1));
    if (!found->path.empty())
        text += "; they differ at " + found->path + ": " + short_text(found->got) + " and " + short_text(found->wanted);
    throw Failure(text);
}

Results json(Scenario&, const Arguments& arguments) { return Value(json_text(arguments.at(0))); }

constexpr HostFunction functions[] = {{"json", &json}, {"expect", &expect}};

}  // namespace

std::span<const HostFunction> comparing_calls() { return functions; }

}  // namespace scenario
