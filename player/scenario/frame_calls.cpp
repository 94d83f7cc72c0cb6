// What is seen and pressed, and what the module told the engine.

#include "host/core/clock.h"
#include "host/core/replay.h"
#include "host/core/sdl_device.h"
#include "module/setting.h"
#include "player/scenario/calls.h"
#include "player/scenario/draw_values.h"
#include "player/scenario/events.h"

namespace scenario {

namespace {

void draw(Scenario& scenario, const Arguments& arguments) {
    if (!scenario.engine.frame(host::now())) throw Failure(arguments.function() + ": out of memory");
}

Results frame(Scenario& scenario, const Arguments& arguments) {
    draw(scenario, arguments);
    Value calls = Value::array();
    for (const host::DrawCall& call : scenario.device.calls())
        calls.push_back(
            draw_call_value(call, *scenario.manager().m_setting->m_font_info, scenario.engine.default_font));
    return calls;
}

// Composed once, into the recording; the picture is made from that, so it can't differ from what host.frame tells.
Results image(Scenario& scenario, const Arguments& arguments) {
    const auto path = arguments.get<std::string>(0, "path");
    draw(scenario, arguments);
    const auto screen = host::SdlDevice::in_memory();
    if (!screen) throw Failure(arguments.function() + ": no renderer could be made");
    const int width = scenario.device.view_width();
    const int height = scenario.device.view_height();
    screen->begin_frame(width, height);
    host::draw_scene(*screen, width, height, scenario.engine.look, host::now());
    host::replay(scenario.device.calls(), *screen);
    screen->end_frame();
    std::string error;
    if (!screen->save_png(path, error)) return {Value(), error};
    return Value(true);
}

Results mouse(Scenario& scenario, const Arguments& arguments) {
    const auto name = arguments.get<std::string>(0, "event");
    const auto kind = event_kind(name);
    if (!kind) throw Failure(arguments.where(0, "event") + ": there is no event \"" + name + "\"");
    return Value(scenario.engine.mouse(*kind, arguments.get<int>(1, "x"), arguments.get<int>(2, "y")));
}

Results cursor_pos(Scenario& scenario, const Arguments& arguments) {
    scenario.log.cursor = {arguments.get<int>(0, "x"), arguments.get<int>(1, "y")};
    return {};
}

Results calls(Scenario& scenario, const Arguments&) { return scenario.log.take(); }

// Indexed by xparam_desc::Kind.
constexpr const char* kind_names[] = {"int", "float", "bool", "str", "vec", "vec4"};

Value default_of(const xparam_desc& param) {
    const VEC3 vector = param.get_VEC();
    switch (param.kind) {
        case xparam_desc::INT:
            return param.get_INT();
        case xparam_desc::FLOAT:
            return value_of(param.get_FLOAT());
        case xparam_desc::BOOL:
            return param.get_BOOL();
        case xparam_desc::STR:
            return value_of(std::wstring(param.get_STR()));
        case xparam_desc::VEC:
            return Value::array({vector.x, vector.y, vector.z});
        case xparam_desc::VEC4_:
            return value_of(param.get_VEC4());
    }
    return {};
}

Value parameter_of(const xparam_desc& param) {
    return {{"kind", kind_names[param.kind]}, {"default", default_of(param)}, {"text", value_of(param.text)}};
}

Value function_of(const host::RegisteredFunction& function) {
    Value params = Value::array();
    for (const auto& param : function.desc.params) {
        params.push_back(parameter_of(*param));
        params.back()["hint"] = param->hint;
    }
    Value shown = {{"name", value_of(function.desc.func_name)},
                   {"show", value_of(function.desc.show_name)},
                   {"description", value_of(function.desc.description)},
                   {"category", value_of(function.category)},
                   {"params", params}};
    if (function.desc.ret_param) shown["ret"] = parameter_of(*function.desc.ret_param);
    return shown;
}

Results functions_of(Scenario& scenario, const Arguments&) {
    Value all = Value::array();
    for (const auto& function : scenario.engine.scripts().functions()) all.push_back(function_of(*function));
    return all;
}

constexpr HostFunction functions[] = {
    {"frame", &frame},           {"image", &image}, {"mouse", &mouse},
    {"cursor_pos", &cursor_pos}, {"calls", &calls}, {"functions", &functions_of},
};

}  // namespace

std::span<const HostFunction> frame_calls() { return functions; }

}  // namespace scenario
