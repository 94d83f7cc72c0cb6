#include <iostream>

#include "host/core/project_file.h"
#include "player/commands.h"

namespace player {

int restore(const RestoreOptions& options) {
    std::string error;
    if (!host::restore_project(options.project, error)) return fail(error);
    std::cout << options.project << " is as it was before it was last saved\n";
    return EXIT_DONE;
}

}  // namespace player
