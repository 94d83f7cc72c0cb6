// The reference of script functions for programs.

#include <nlohmann/json.hpp>

#include "host/core/text_conversion.h"
#include "player/function_reference.h"

namespace player {

namespace {

using nlohmann::ordered_json;

// Indexed by xparam_desc::Kind.
constexpr const char* factories[] = {"create_int_param", "create_float_param", "create_bool_param",
                                     "create_str_param", "create_vec_param",   "create_vec4_param"};

ordered_json default_json(const xparam_desc& param) {
    const VEC3 v3 = param.get_VEC();
    const VEC4 v4 = param.get_VEC4();
    switch (param.kind) {
        case xparam_desc::INT:
            return param.get_INT();
        case xparam_desc::FLOAT:
            return param.get_FLOAT();
        case xparam_desc::BOOL:
            return param.get_BOOL();
        case xparam_desc::STR:
            return to_utf8(param.get_STR());
        case xparam_desc::VEC:
            return {v3.x, v3.y, v3.z};
        case xparam_desc::VEC4_:
            return {v4.x, v4.y, v4.z, v4.w};
    }
    return {};
}

ordered_json param_json(const xparam_desc& param) {
    return {{"factory", factories[param.kind]}, {"default", default_json(param)}, {"text", to_utf8(param.text)}};
}

}  // namespace

std::string function_json(const FunctionList& functions) {
    ordered_json list = ordered_json::array();
    for (const auto& function : functions) {
        const xfunc_desc& desc = function->desc;
        ordered_json params = ordered_json::array();
        for (const auto& param : desc.params) {
            params.push_back({{"factory", factories[param->kind]},
                              {"default", default_json(*param)},
                              {"hint", param->hint},
                              {"text", to_utf8(param->text)}});
        }
        list.push_back({{"name", function->name},
                        {"shown", to_utf8(desc.show_name)},
                        {"description", to_utf8(desc.description)},
                        {"category", to_utf8(function->category)},
                        {"params", params},
                        {"return", desc.ret_param ? param_json(*desc.ret_param) : ordered_json()}});
    }
    return list.dump(2) + "\n";
}

}  // namespace player
