#pragma once

// The registered script functions, and the scripts that call them.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/script.h"
#include "host/system/lua_box.h"

namespace host {

struct RegisteredFunction {
    xfunc_desc desc;
    tstringW category;
    /// For errors, UTF-8: the function's name, and the title of each parameter.
    std::string name;
    std::vector<std::string> titles;
};

/// Where a script hangs, for errors and for those who watch scripts run.
struct ScriptPlace {
    CGuid owner_id;
    /// Name of the owner when the script was tied to it.
    tstringW owner_name;
    /// left_down, mouse_in ...; empty for a script that is tied to nothing.
    std::string event;
};

class ScriptManager final : public CScriptManager {
public:
    explicit ScriptManager(XSystem* system) : m_system(system) {}

    /// A second function of the same name replaces the first. A function without name or body, or with more than
    /// 16 parameters, is passed over.
    void register_xfun(xfunc_desc function, tstringW category) override;
    /// Together with the state that knows them: their module is about to be unloaded.
    void forget_functions();
    /// In the order of registration.
    const std::vector<std::unique_ptr<RegisteredFunction>>& functions() const { return m_functions; }

    /// Makes every registered function a global of the box. A return value that the body left unwritten is what its
    /// descriptor held at registration, or nil with `unwritten_is_nil`. The box must not outlive the manager.
    bool bind_functions(LuaBox& box, bool unwritten_is_nil, std::string& error);
    /// Adds further functions to each box that reset makes; called inside LuaBox::protect.
    void set_extra_functions(int (*body)(lua_State*), void* argument);

    /// A fresh state with no globals of earlier runs. Refused (false) while a script runs.
    bool reset();
    /// Carries a script out; errors go to `on_error`. Touches nothing of the caller afterwards.
    void run(const std::string& text, const ScriptPlace& place);

    /// "SHAPE, EVENT, line N: message", UTF-8. Empty: standard error.
    std::function<void(const std::string&)> on_error;
    /// Hears of each script ahead of its run; `owner` is the name of the moment. May be empty.
    std::function<void(const std::wstring& owner, const std::string& event)> on_run;
    /// Gets what scripts print. Empty: standard output.
    std::function<void(const std::string&)> on_print;
    /// Scripts get the same random numbers in every run, from the next reset on.
    bool repeatable = false;
    /// Gives the present name of an owner; empty text where it is no more.
    std::function<std::wstring(const CGuid&)> owner_name;

private:
    /// Null: `error` says why, and the next script tries again.
    LuaBox* box(LuaError& error);
    std::wstring name_of(const ScriptPlace& place) const;

    XSystem* m_system;
    std::vector<std::unique_ptr<RegisteredFunction>> m_functions;
    std::unique_ptr<LuaBox> m_box;
    int (*m_extra)(lua_State*) = nullptr;
    void* m_extra_argument = nullptr;
};

}  // namespace host
