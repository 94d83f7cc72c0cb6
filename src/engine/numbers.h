#pragma once

// The numbers that cross the boundary between the module and the engine.

inline constexpr unsigned long ITEM_TYPE_DIALOG = 83783;
inline constexpr unsigned long ITEM_TYPE_SHAPE = 83782;
inline constexpr unsigned long ITEM_TYPE_GUI_SETTING = 14;
inline constexpr unsigned long ITEM_FLAGS = 0x4003;

inline constexpr unsigned ANIM_NODE_TYPE_GUI = 1001;
inline constexpr unsigned TRACK_TYPE_OFFSET = 1002;
inline constexpr unsigned TRACK_TYPE_SIZE = 1003;
inline constexpr unsigned TRACK_TYPE_VISIBLE = 1004;
inline constexpr unsigned TRACK_TYPE_ALIGN = 1005;
inline constexpr unsigned TRACK_TYPE_COLOR = 1006;

/// Engine to module; p1 points to a list of actors that have left the scene and can still come back.
inline constexpr unsigned long MSG_ACTORS_REMOVED = 21;
/// Engine to module; p1 points to a list of actors that are back in the scene.
inline constexpr unsigned long MSG_ACTORS_RESTORED = 22;
/// Module to engine, all parameters 0: a shape has moved to another dialog.
inline constexpr unsigned long MSG_ACTOR_TREE_CHANGED = 35;

/// The one state of the engine in which a hidden GUI stays hidden.
inline constexpr int SYSTEM_STATE_FOUR = 4;

/// Place of the run-time mouse tool in the input chain. Larger is served first.
inline constexpr float RUN_TOOL_PRIORITY = 900.0f;
