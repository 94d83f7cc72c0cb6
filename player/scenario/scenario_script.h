#pragma once

#include "engine/script.h"
#include "player/scenario/scenario.h"

namespace scenario {

/// A function of the scenario, tied to an event of a shape. It is stored nowhere.
class ScenarioScript final : public IScriptFunction {
public:
    /// `function` is its place in the Lua registry; `owner` is the shape's actor. `event` as in the scripts' keys.
    ScenarioScript(Scenario& scenario, int function, const CGuid& owner, std::string event);
    void run() override;

private:
    Scenario& m_scenario;
    int m_function;
    CGuid m_owner;
    std::string m_event;
};

/// The eight events with the members that hold their scripts, in the order of the shape's fields.
struct ScriptEvent {
    const char* name;
    CMyComPtr<IScriptFunction> CSimpleGUIShape::*member;
};
extern const std::array<ScriptEvent, 8> script_events;

/// Ties scripts to the shape: each field of the table is a text in Lua, a function of the scenario, or false for none.
void set_scripts(Scenario& scenario, CSimpleGUIShape& shape, Fields scripts);
/// The texts by event; true for a function of the scenario.
Value scripts_of(const CSimpleGUIShape& shape);

}  // namespace scenario
