#pragma once

// The reference of script functions, from what the module has registered: one text for each kind of reader.

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/system/script_manager.h"

namespace player {

using FunctionList = std::vector<std::unique_ptr<host::RegisteredFunction>>;

/// One line a function, for a terminal.
std::string function_table(const FunctionList& functions);
/// A list of objects in order of registration.
std::string function_json(const FunctionList& functions);
/// A page, by category. Has the functions of the reference engine too.
std::string function_markdown(const FunctionList& functions);
/// Lua declarations without bodies, annotated, by which a script editor completes and explains. Has the functions of
/// the reference engine too.
std::string function_stubs(const FunctionList& functions);

/// A parameter as script writers see it.
struct ParamView {
    /// A Lua name, unique within its function; made up, since what is registered is a title.
    std::string name;
    /// As Lua calls it: integer, number, boolean, string, vec3 or vec4.
    std::string_view type;
    /// The title, and behind a colon what is offered.
    std::string text;
    /// The offered numbers, as text; empty where any value will do.
    std::vector<std::string> choices;
};
std::vector<ParamView> params_of(const xfunc_desc& function);
/// "name(first, second)".
std::string signature_of(const host::RegisteredFunction& function);
/// As ParamView::type.
std::string_view lua_type_of(const xparam_desc& param);
/// The registered default as Lua writes it: 0, "", {0, 0, 0}.
std::string default_of(const xparam_desc& param);
/// UTF-8, in one line.
std::string one_line(const tstringW& text);

}  // namespace player
