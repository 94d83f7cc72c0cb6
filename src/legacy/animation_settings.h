#pragma once

#include "engine/animation.h"

/// Which animated items a command of the time bar can be for.
struct LegacyCommand {
    int type;
    /// Of the item's identifier.
    const char* id_key;
    /// Its keys are those of panels.
    bool is_primary;
};

inline constexpr LegacyCommand legacy_commands[] = {{2, "CTRL", false}, {3, "DLG", false}, {5, "ID", true}};

/// Null for a kind that nobody knows.
constexpr const LegacyCommand* find_legacy_command(int type) {
    for (const LegacyCommand& row : legacy_commands) {
        if (row.type == type) return &row;
    }
    return nullptr;
}

/// The settings of an animation whose last key stands at `length`, in seconds, by the type of its bar.
inline anim_info legacy_anim_info(int bar_type, float length) {
    anim_info info;
    info.length = length;
    if (bar_type == 2) info.mode_flag = 1;
    if (bar_type == 0 || bar_type == 3) info.mode_count = 1;
    return info;
}
