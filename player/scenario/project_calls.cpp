// Projects, the view, the clock, and what a frame depends on.

#include "engine/services.h"
#include "fonts/font_info.h"
#include "host/core/clock.h"
#include "host/core/legacy_file.h"
#include "host/core/project_file.h"
#include "host/core/text_conversion.h"
#include "module/setting.h"
#include "player/scenario/calls.h"
#include "player/scenario/legacy_values.h"
#include "player/scenario/lua_file.h"
#include "player/scenario/tree_values.h"

namespace scenario {

namespace {

// In the scenario's own state, so that its globals are there afterwards.
Results include(Scenario& scenario, const Arguments& arguments) {
    const auto path = arguments.get<std::string>(0, "path");
    host::LuaError error;
    if (scenario.lua.run(read_lua_file(path), error, path)) return {};
    throw Failure(error.line > 0 ? "script:" + std::to_string(error.line) + ": " + error.message : error.message);
}

Results make_new(Scenario& scenario, const Arguments& arguments) {
    if (scenario.engine.new_project(arguments.get<int>(0, "w"), arguments.get<int>(1, "h"))) return {};
    throw Failure(arguments.function() + ": out of memory");
}

Results clean(Scenario& scenario, const Arguments&) {
    scenario.engine.module()->on_clean_project();
    return {};
}

Results opened(Scenario& scenario, bool good, const std::string& error) {
    if (!good) return {Value(), error};
    Value warnings = Value::array();
    for (const std::string& warning : scenario.engine.warnings()) warnings.push_back(warning);
    return {true, std::move(warnings)};
}

Results open(Scenario& scenario, const Arguments& arguments) {
    std::string error;
    if (arguments.at(0).is_string()) {
        const bool good = scenario.engine.open_project(arguments.get<std::string>(0, "path"), error);
        return opened(scenario, good, error);
    }
    const auto path = arguments.get<std::string>(1, "path", {});
    host::ProjectDocument document;
    try {
        document = document_of(arguments.at(0), "tree");
    } catch (const Failure& failure) {
        return {Value(), failure.what()};
    }
    return opened(scenario, scenario.engine.open_document(document, path, error), error);
}

Results import(Scenario& scenario, const Arguments& arguments) {
    std::string error;
    if (arguments.at(0).is_string()) {
        const bool good = scenario.engine.import_project(arguments.get<std::string>(0, "path"), error);
        return opened(scenario, good, error);
    }
    const auto path = arguments.get<std::string>(1, "path", {});
    std::unique_ptr<host::LegacyProject> legacy;
    try {
        legacy = legacy_project_of(arguments.at(0), path);
    } catch (const Failure& failure) {
        return {Value(), failure.what()};
    }
    return opened(scenario, scenario.engine.import_tree(*legacy, error), error);
}

Results save(Scenario& scenario, const Arguments& arguments) {
    if (!arguments.has(0)) return tree_of(scenario.engine.document());
    std::string error;
    if (!scenario.engine.save_project(arguments.get<std::string>(0, "path"), error)) return {Value(), error};
    return Value(true);
}

Results tree(Scenario&, const Arguments& arguments) {
    const auto path = arguments.get<std::string>(0, "path");
    std::string error;
    if (host::is_legacy_file(path)) {
        const auto legacy = host::read_legacy(path, error);
        return legacy ? Results(tree_of(*legacy)) : Results(Value(), error);
    }
    host::ProjectDocument document;
    if (!host::read_project(path, document, error)) return {Value(), error};
    return tree_of(document);
}

Results view(Scenario& scenario, const Arguments& arguments) {
    scenario.engine.resize(arguments.get<int>(0, "w"), arguments.get<int>(1, "h"));
    return {};
}

Results client(Scenario& scenario, const Arguments& arguments) {
    scenario.engine.set_client_rect(arguments.get<CRect>(0, "rect"));
    return {};
}

Results size_changed(Scenario& scenario, const Arguments&) {
    scenario.engine.tell_size_changed();
    return {};
}

Results paths(Scenario& scenario, const Arguments& arguments) {
    Fields fields = arguments.fields(0, "paths");
    tstringW project;
    if (fields.read("project", project)) scenario.engine.fix_project_path(project);
    fields.read("resources", scenario.engine.resource_directory);
    fields.finish();
    return {};
}

Results clock(Scenario&, const Arguments& arguments) {
    host::set_time(arguments.get<double>(0, "t"));
    return {};
}

Results advance(Scenario&, const Arguments& arguments) {
    host::advance_time(arguments.get<double>(0, "dt"));
    return {};
}

Results start(Scenario& scenario, const Arguments& arguments) {
    if (scenario.engine.is_running())
        scenario.engine.module()->prepare_run();
    else if (!scenario.engine.start_run())
        throw Failure(arguments.function() + ": out of memory");
    return {};
}

// At once, also inside the script of an event: what stands behind the call shall find the run at its end.
Results stop(Scenario& scenario, const Arguments&) {
    if (scenario.engine.is_running())
        scenario.engine.end_run();
    else
        scenario.engine.module()->after_run();
    return {};
}

Results select(Scenario& scenario, const Arguments& arguments) {
    scenario.engine.selection().select(scenario.actors_named(arguments.at(0), arguments.where(0, "names")));
    return {};
}

Results edit(Scenario& scenario, const Arguments& arguments) {
    CSimpleGUIDialog* dialog =
        arguments.has(0) ? &scenario.dialog_named(arguments.at(0), arguments.where(0, "name")) : nullptr;
    scenario.manager().set_current_edit_dialog(dialog);
    return {};
}

Results formal_view(Scenario& scenario, const Arguments& arguments) {
    scenario.engine.m_formal_view = arguments.get<bool>(0, "b") ? 1 : 0;
    return {};
}

Results system_state(Scenario& scenario, const Arguments& arguments) {
    scenario.engine.m_system_state = arguments.get<int>(0, "n");
    return {};
}

Results dim_color(Scenario& scenario, const Arguments& arguments) {
    scenario.manager().m_dim_color = arguments.get<VEC4>(0, "color");
    return {};
}

Results trans_time(Scenario& scenario, const Arguments& arguments) {
    scenario.manager().m_setting->m_ani_trans_time = arguments.get<float>(0, "t");
    return {};
}

Results sample_view(Scenario& scenario, const Arguments& arguments) {
    scenario.engine.m_sample_view_flag = arguments.get<bool>(0, "b");
    return {};
}

constexpr HostFunction functions[] = {
    {"include", &include},
    {"new", &make_new},
    {"clean", &clean},
    {"open", &open},
    {"import", &import},
    {"save", &save},
    {"tree", &tree},
    {"view", &view},
    {"client", &client},
    {"size_changed", &size_changed},
    {"paths", &paths},
    {"clock", &clock},
    {"advance", &advance},
    {"start", &start},
    {"stop", &stop},
    {"select", &select},
    {"edit", &edit},
    {"formal_view", &formal_view},
    {"system_state", &system_state},
    {"dim_color", &dim_color},
    {"trans_time", &trans_time},
    {"sample_view", &sample_view},
};

}  // namespace

std::span<const HostFunction> project_calls() { return functions; }

}  // namespace scenario
