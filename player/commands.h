#pragma once

#include <string>
#include <vector>

#include "player/mouse_action.h"
#include "player/session.h"

namespace player {

struct PlayOptions {
    std::string project;
    std::string module;
    ViewSize size;
    /// Ends after so many frames; 0: when the window is closed.
    int frames = 0;
};
/// A window with the running project. Gives the exit code, as all commands do.
int play(const PlayOptions& options);

struct RenderOptions {
    std::string project;
    std::string module;
    std::string out;
    ViewSize size;
    /// Seconds after the start.
    double at = 0.0;
    bool running = false;
    std::vector<MouseAction> mouse;
    /// Where the project is saved afterwards; empty: nowhere.
    std::string save;
};
/// One picture of a project, without a window.
int render(const RenderOptions& options);

struct InspectOptions {
    std::string project;
    bool json = false;
};
/// The tree of a project file with every field, and what is wrong with it.
int inspect(const InspectOptions& options);

struct NewOptions {
    std::string file;
    std::string module;
};
/// A small project to start from.
int create_project(const NewOptions& options);

}  // namespace player
