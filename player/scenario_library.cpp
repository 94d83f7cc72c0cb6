#include "player/scenario_library.h"

#include <dlfcn.h>

#include "player/libraries.h"

namespace player {

namespace {

template <class Function>
bool find(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
    return function != nullptr;
}

}  // namespace

bool ScenarioLibrary::load(std::string& error) {
    void* library = dlopen(library_beside_program("libsgui_scenario.so").c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library && find(library, "sgui_run_scenario", run) && find(library, "sgui_make_recorder", make_recorder) &&
        find(library, "sgui_font_names", font_names) && find(library, "sgui_font_tries", font_tries) &&
        find(library, "sgui_publish", publish))
        return true;
    const char* reason = dlerror();
    error = reason ? reason : "libsgui_scenario.so: not the library of this program";
    return false;
}

}  // namespace player
