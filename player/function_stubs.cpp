// The reference of script functions as annotated declarations.

#include "host/core/text_conversion.h"
#include "host/system/engine_functions.h"
#include "player/function_reference.h"

namespace player {

namespace {

constexpr const char* stubs_head = R"(---@meta

-- What a script of a project can call, for script editors that read such annotations. Not to be run. Written by
-- "sgui functions --lua"; the same as a page: "sgui functions --markdown".

---Three numbers: a place {x, y, 0}, or a size {height, width, 0}.
---@class vec3
---@field [1] number
---@field [2] number
---@field [3] number
---@field x number
---@field y number
---@field z number

---Four numbers: a rectangle {left, top, right, bottom}, or a colour {r, g, b, a}, each 0 to 1.
---@class vec4
---@field [1] number
---@field [2] number
---@field [3] number
---@field [4] number
---@field x number
---@field y number
---@field z number
---@field w number
---@field r number
---@field g number
---@field b number
---@field a number
)";

// What an editor may accept: the offered numbers, or the type; of a vector a plain list too.
std::string accepted(const ParamView& param) {
    std::string text;
    if (param.type == "integer") {
        for (const std::string& choice : param.choices) text += (text.empty() ? "" : "|") + choice;
    }
    if (text.empty()) text = param.type;
    return param.type.starts_with("vec") ? text + "|number[]" : text;
}

std::string stub(const host::RegisteredFunction& function) {
    const xfunc_desc& desc = function.desc;
    std::string text = "\n---" + one_line(desc.show_name) + ": " + one_line(desc.description) + "\n";
    for (const ParamView& param : params_of(desc)) {
        text += "---@param " + param.name + " " + accepted(param) + " " + param.text + "\n";
    }
    if (desc.ret_param) {
        text +=
            "---@return " + std::string(lua_type_of(*desc.ret_param)) + " # " + one_line(desc.ret_param->text) + "\n";
    }
    return text + "function " + signature_of(function) + " end\n";
}

std::string stub(const host::EngineFunction& function) {
    std::string text = std::string("\n---") + function.text + "\n";
    for (const host::EngineParam& param : function.params) {
        text += std::string("---@param ") + param.name + " " + param.type + "\n";
    }
    if (*function.results) text += std::string("---@return ") + function.results + "\n";
    return text + "function " + host::signature_of(function) + " end\n";
}

}  // namespace

std::string function_stubs(const FunctionList& functions) {
    std::string text = stubs_head;
    for (const auto& function : functions) text += stub(*function);
    text += "\n-- The reference engine's own: the 3D scene behind the dialogs, and animations.\n";
    for (const auto functions_of_engine : {host::scene_functions(), host::animation_functions()})
        for (const host::EngineFunction& function : functions_of_engine) text += stub(function);
    return text;
}

}  // namespace player
