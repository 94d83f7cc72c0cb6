#pragma once

#include <memory>
#include <string>

#include "player/fonts/font_library.h"
#include "player/scenario/recorder.h"
#include "player/scenario/run_scenario.h"

namespace player {

/// The library that drives and records projects and knows the module's fonts. It links the module, which the player
/// itself must be able to do without, so it is loaded on demand and stays until the program ends.
struct ScenarioLibrary {
    decltype(&sgui_run_scenario) run = nullptr;
    decltype(&sgui_make_recorder) make_recorder = nullptr;
    decltype(&sgui_font_names) font_names = nullptr;
    decltype(&sgui_font_tries) font_tries = nullptr;
    decltype(&sgui_publish) publish = nullptr;

    /// False with `error` set if it is not there.
    bool load(std::string& error);
};

}  // namespace player
