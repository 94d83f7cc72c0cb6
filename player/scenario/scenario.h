#pragma once

#include "host/core/recording_device.h"
#include "layout/shape.h"
#include "module/manager.h"
#include "player/scenario/arguments.h"
#include "player/scenario/call_log.h"

namespace scenario {

/// What a run of a scenario drives: an engine on a recording device with the module in it, an empty project of
/// 1280 × 720, and a clock that stands at 0. Identifiers count up, so that two runs make the same ones.
class Scenario {
public:
    /// Throws Failure if the module can't be loaded. `lua` runs the scenario and outlives it.
    Scenario(host::LuaBox& lua, const std::string& module_path);
    Scenario(const Scenario&) = delete;
    Scenario& operator=(const Scenario&) = delete;
    ~Scenario();

    host::LuaBox& lua;
    host::RecordingDevice device;
    host::Engine engine;
    CallLog log;

    CSimpleGUIManager& manager() const;

    /// The actor of that name, else the one whose identifier the text is, else null. Actors out of the scene count
    /// too; of several with one name the earliest made wins.
    host::Actor* find_actor(const std::string& name) const;
    /// Null unless the actor carries such an item.
    CSimpleGUIDialog* dialog_of(const IActor* actor) const;
    CSimpleGUIShape* shape_of(const IActor* actor) const;

    /// The like for arguments; a name that no item has is a Failure.
    host::Actor& actor_named(const Value& name, const std::string& what) const;
    CSimpleGUIDialog& dialog_named(const Value& name, const std::string& what) const;
    CSimpleGUIShape& shape_named(const Value& name, const std::string& what) const;
    /// From a list of names; `false` is a null entry.
    std::list<IActor*> actors_named(const Value& names, const std::string& what) const;

    /// An error in a function that the module called; raised where the scenario called the engine.
    host::LuaError pending_error;
};

/// One function of the table `host`.
struct HostFunction {
    const char* name;
    Results (*call)(Scenario&, const Arguments&);
};

}  // namespace scenario
