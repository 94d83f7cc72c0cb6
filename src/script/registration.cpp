#include "engine/engine_system.h"
#include "module/boundary.h"
#include "module/manager.h"
#include "module/module_state.h"
#include "script/function_table.h"
#include "script/script_functions.h"

namespace {

CMyComPtr<xparam_desc> make_param(const ScriptParam& row) {
    const auto each = static_cast<float>(row.value);
    switch (row.kind) {
        case xparam_desc::INT:
            return xparam_desc::create_int_param(row.value, row.text);
        case xparam_desc::FLOAT:
            return xparam_desc::create_float_param(each, row.text);
        case xparam_desc::BOOL:
            return xparam_desc::create_bool_param(row.value, row.text);
        case xparam_desc::STR:
            return xparam_desc::create_str_param(L"", row.text);
        case xparam_desc::VEC:
            return xparam_desc::create_vec_param({each, each, each}, row.text);
        case xparam_desc::VEC4_:
            return xparam_desc::create_vec4_param({each, each, each, each}, row.text);
    }
    return {};
}

xfunc_desc make_function(const ScriptFunction& row) {
    xfunc_desc function;
    function.func_name = row.name;
    function.show_name = row.shown_name;
    function.description = row.description;
    function.func = row.body;
    for (const ScriptParam& param : row.params) {
        if (!param.text) break;
        function.params.push_back(make_param(param));
        function.params.back()->hint = param.hint;
    }
    if (row.result.text) function.ret_param = make_param(row.result);
    return function;
}

}  // namespace

void CSimpleGUIScriptFunctions::register_functions() {
    for (const ScriptFunction& row : script_functions) {
        s_gui_system->m_script_manager->register_xfun(make_function(row), row.category);
    }
}

void CSimpleGUIManager::on_register_xfunc() try { CSimpleGUIScriptFunctions::register_functions(); } catch (...) {
    keep_inside(L"on_register_xfunc");
}
