#pragma once

#include "layout/shape.h"

/// What a kind of control of the plain layout becomes.
struct LegacyControl {
    int type;
    int is_static_pic;
    VEC4 color;
    /// Its pictures, in the order of the members of a shape; null where it has none.
    const char* pictures[3];
};

inline const LegacyControl legacy_controls[] = {
    {1, 1, {1.0f, 1.0f, 1.0f, 0.0f}, {}},
    {10, 0, {1.0f, 1.0f, 1.0f, 1.0f}, {"Texture0", "Texture1", "Texture2"}},
    {11, 1, {1.0f, 1.0f, 1.0f, 1.0f}, {"Texture"}},
};

/// Null for a kind that nobody knows; such a control keeps what a new shape has.
inline const LegacyControl* find_legacy_control(int type) {
    for (const LegacyControl& row : legacy_controls) {
        if (row.type == type) return &row;
    }
    return nullptr;
}

/// Whether a panel of the primary layout is a button.
constexpr bool is_legacy_button(int panel_type) { return panel_type == 10 || panel_type == 20; }
