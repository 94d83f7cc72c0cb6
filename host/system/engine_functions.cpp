#include "host/system/engine_functions.h"

#include <lua.hpp>

namespace host {

std::string signature_of(const EngineFunction& function) {
    std::string text = std::string(function.name) + "(";
    for (const EngineParam& param : function.params) {
        if (&param != function.params.data()) text += ", ";
        text += param.name;
    }
    return text + ")";
}

int add_engine_functions(lua_State* L) {
    for (const auto functions : {scene_functions(), animation_functions()}) {
        for (const EngineFunction& function : functions) {
            lua_pushvalue(L, 1);
            lua_pushcclosure(L, function.body, 1);
            lua_setglobal(L, function.name);
        }
    }
    return 0;
}

}  // namespace host
