// The reference of script functions as a page.

#include "host/core/text_conversion.h"
#include "host/system/engine_functions.h"
#include "player/function_reference.h"

namespace player {

namespace {

constexpr const char* page_head = R"(# Script functions

What a script of a project can call. This page is written by `sgui functions --markdown`; `sgui functions --lua` writes
[script-functions.lua](script-functions.lua), from which script editors complete and explain. More of animations stands
in [animations.md](animations.md).

- Elements are called by their names: a dialog ("窗口", "对话框") or a control ("控件"), which is a shape in a dialog. If
  nothing has the name, nothing happens, and a function that returns a value returns the default that stands with it.
- A number that is not among those offered has no effect unless the function's sense gives it one.
- Places are view pixels, x to the right, y downwards; what is not whole is cut off towards zero.
- A vector is a list, `{x, y}` with a third number that is ignored where a place is meant, so `{120, 40, 0}`. What comes
  back answers to `v[1]` as well as `v.x`, and colours, `{r, g, b, a}` from 0 to 1, to `v.r`.
- Rectangles are `{left, top, right, bottom}`.
- A size ("长/宽") has the height first: `{height, width, 0}`.
- In titles "\n", a backslash and an n, breaks the line. Lua reads `"\\n"` as these two characters.
- Every value is given: the defaults are what a script editor begins with. A wrong number or kind of values ends the
  script with a message that names function and parameter.
- A script does the same in every run; `pairs` and `next` take numbers and then texts, each in order. A script that goes
  on for a second, or asks for all memory, is stopped with a message; the next event works.
)";

// Text that stands between the bars of a table.
std::string cell(std::string text) {
    for (std::size_t at = 0; (at = text.find('|', at)) != std::string::npos; at += 2) text.insert(at, "\\");
    return text;
}

// What a parameter takes: its type, and of a name what is named.
std::string kind_of(const xparam_desc& param) {
    switch (param.hint) {
        case XP_DIALOG:
            return "name of a dialog";
        case XP_CONTROL:
            return "name of a control";
        case XP_FILE:
            return "name of a file";
        default:
            return std::string(lua_type_of(param));
    }
}

std::string section(const host::RegisteredFunction& function) {
    const xfunc_desc& desc = function.desc;
    std::string text = "\n### `" + signature_of(function) + "`\n\n**" + one_line(desc.show_name) + "** " +
                       one_line(desc.description) + "\n\n| | | Default | |\n|---|---|---|---|\n";
    const std::vector<ParamView> views = params_of(desc);
    for (std::size_t at = 0; at < views.size(); ++at) {
        const xparam_desc& param = *desc.params[at];
        text += "| `" + views[at].name + "` | " + kind_of(param) + " | `" + cell(default_of(param)) + "` | " +
                cell(views[at].text) + " |\n";
    }
    if (!desc.ret_param) return text;
    const xparam_desc& result = *desc.ret_param;
    return text + "| returns | " + std::string(lua_type_of(result)) + " | `" + cell(default_of(result)) + "` | " +
           cell(one_line(result.text)) + " |\n";
}

void add_section(std::string& page, const char* title, std::span<const host::EngineFunction> functions) {
    page += std::string("\n## ") + title + "\n\n| | |\n|---|---|\n";
    for (const host::EngineFunction& function : functions)
        page += "| `" + host::signature_of(function) + "` | " + cell(function.text) + " |\n";
}

}  // namespace

std::string function_markdown(const FunctionList& functions) {
    std::string text = page_head;
    const std::wstring* category = nullptr;
    for (const auto& function : functions) {
        if (!category || *category != function->category) text += "\n## " + one_line(function->category) + "\n";
        category = &function->category;
        text += section(*function);
    }
    add_section(text, "The 3D scene (this engine's own)", host::scene_functions());
    add_section(text, "Animations (this engine's own)", host::animation_functions());
    return text;
}

}  // namespace player
