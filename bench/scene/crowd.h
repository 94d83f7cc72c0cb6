#pragma once

// The crowd: one scene of as many shapes as one likes, for everything that asks what much costs: benches, tests, long
// runs. Always the same for the same numbers. Belongs here: the scene, its key frames, its file, and a device that
// shows it to no one. Includes the host; knows the module by its contract alone.

#include <string>

#include "host/core/project_document.h"

namespace bench {

struct Crowd {
    enum Pictures {
        /// Half of the shapes have pictures, static pictures and buttons in turn.
        MIXED,
        /// Half of the shapes are static pictures.
        STATIC,
        /// Every shape is a button of three pictures.
        BUTTONS,
    };

    int shapes = 1000;
    /// All of them in one dialog if it is as great as `shapes`.
    int shapes_in_dialog = 100;
    Pictures pictures = MIXED;
    /// All dialogs lie on one spot, instead of overlapping by a part.
    bool on_one_spot = false;
    /// All dialogs are scaled, so that a new view size gives each a new size; else every tenth.
    bool scaled_dialogs = false;
};

inline constexpr int crowd_width = 1920;
inline constexpr int crowd_height = 1080;
inline constexpr int crowd_pictures = 16;

inline constexpr int keys_in_track = 20;
inline constexpr int tracks_in_node = 5;
inline constexpr float seconds_between_keys = 0.25f;

/// Dialogs of shapes in a view of the size above: every tenth shape with 12 characters of text, alignments 0 to 8 and
/// the scale mode in turn. Its pictures are pictures/0.png and so on, beside its file.
host::ProjectDocument crowd_document(const Crowd& crowd);

/// Names and identifiers count from 0, in the order of the document.
std::wstring crowd_shape_name(int number);
CGuid crowd_shape_id(int number);
CGuid crowd_dialog_id(int number);

/// What a node of key frames stores that moves, sizes and colours a shape in a loop: 5 tracks of 20 keys.
host::ProjectNode crowd_keys();

/// The pictures, beside a project of that path. False: `error` says what failed.
bool write_crowd_pictures(const std::string& project_path, std::string& error);

}  // namespace bench
