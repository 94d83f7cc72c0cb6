#pragma once

#include <optional>
#include <string>
#include <vector>

#include "player/mouse_action.h"
#include "player/scenario/run_scenario.h"
#include "player/session.h"

namespace player {

struct PlayOptions {
    std::string project;
    std::string module;
    ViewSize size;
    /// Ends after so many frames; 0: when the window is closed.
    int frames = 0;
    /// Where the events are written as a scenario; empty: nowhere. The file must not exist yet.
    std::string record;
};
/// A window with the running project. Gives the exit code, as all commands do.
int play(const PlayOptions& options);

struct RenderOptions {
    std::string project;
    std::string module;
    std::string out;
    ViewSize size;
    /// Seconds after the start, up to which the animations that start by themselves have played; without it they play
    /// only if the project runs.
    std::optional<double> at;
    bool running = false;
    std::vector<MouseAction> mouse;
    /// Where the project is saved afterwards; empty: nowhere.
    std::string save;
};
/// One picture of a project, without a window.
int render(const RenderOptions& options);

struct SheetOptions {
    std::string project;
    std::string module;
    std::string out;
    /// Its name, UTF-8.
    std::string animation;
    int frames = 8;
    /// Of the view; the pictures on the sheet are smaller.
    ViewSize size;
};
/// Moments of an animation, spread evenly from its beginning to its end, beside each other in one picture.
int sheet(const SheetOptions& options);

struct InspectOptions {
    std::string project;
    bool json = false;
};
/// The tree of a project file with every field, and what is wrong with it.
int inspect(const InspectOptions& options);

/// Carries out a Lua file that drives the module without a window.
int run_scenario(scenario::RunOptions options);

struct ImportOptions {
    /// Only read.
    std::string legacy;
    std::string module;
    /// Where the project is saved in the present format.
    std::string out;
    /// The view that places are brought over into.
    ViewSize size;
    /// Names of animations that are to play as soon as the project runs, UTF-8.
    std::vector<std::string> start;
    /// Lists what did not come over.
    bool report = false;
};
/// Brings a project of the legacy format over into the present one.
int import(const ImportOptions& options);

struct NewOptions {
    std::string file;
    std::string module;
};
/// A small project to start from.
int create_project(const NewOptions& options);

struct RestoreOptions {
    std::string project;
};
/// Changes a project's file for the one that its last save has replaced.
int restore(const RestoreOptions& options);

struct FontsOptions {
    /// A part of the names to list, in any case; empty: all.
    std::string pattern;
    bool json = false;
    /// Explains how this face is looked for instead.
    std::optional<std::string> face;
    int weight = 400;
    bool italic = false;
};
/// The names by which projects may ask for this machine's fonts, or the road from one face to its file.
int list_fonts(const FontsOptions& options);

struct PublishOptions {
    std::string project;
    std::string module;
};
/// Copies the fonts of a project beside it, for machines that lack them.
int publish(const PublishOptions& options);

enum FunctionsForm : int { FUNCTIONS_TABLE, FUNCTIONS_JSON, FUNCTIONS_MARKDOWN, FUNCTIONS_STUBS };

struct FunctionsOptions {
    std::string module;
    FunctionsForm form = FUNCTIONS_TABLE;
};
/// Prints the reference of the script functions that the module registers.
int functions(const FunctionsOptions& options);

}  // namespace player
