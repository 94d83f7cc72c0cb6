#include <iostream>

#include "player/commands.h"
#include "player/libraries.h"
#include "player/scenario_library.h"

namespace player {

int run_scenario(scenario::RunOptions options) {
    options.module = library_beside_program("libsimple_gui.so");
    ScenarioLibrary library;
    std::string error;
    if (!library.load(error)) return fail(error);
    if (library.run(options, error)) return EXIT_DONE;
    // As compilers write it, so that editors find the place.
    std::cerr << error << '\n';
    return EXIT_FAILED;
}

}  // namespace player
