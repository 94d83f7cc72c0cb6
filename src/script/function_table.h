#pragma once

// The functions that scripts call: what each is named and takes, as data, and the bodies beside it. Includes the
// contract; bodies include layout and the manager.

#include <cstddef>

#include "engine/script.h"

/// A parameter of a script function.
struct ScriptParam {
    xparam_desc::Kind kind;
    /// The default; of a vector, that of each component. Texts default to empty.
    int value;
    int hint;
    /// A title, then, each after a ";", what is offered. Null: there is no such parameter.
    const wchar_t* text;
};

/// One row of the table.
struct ScriptFunction {
    static constexpr std::size_t most_params = 5;

    const wchar_t* name;
    const wchar_t* shown_name;
    const wchar_t* description;
    const wchar_t* category;
    void (*body)(xfunc_desc*);
    ScriptParam params[most_params];
    ScriptParam result;
};

inline constexpr std::size_t script_function_count = 42;

/// In the order of registration.
extern const ScriptFunction script_functions[script_function_count];
