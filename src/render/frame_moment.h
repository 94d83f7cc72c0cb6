#pragma once

#include "layout/seconds.h"

/// The engine's time as the shapes of a dialog see it in a frame. Asked for once: a clock costs more than all else that
/// a fading button needs, and all of them fade at one moment.
class FrameMoment {
public:
    /// A dialog begins to be drawn.
    void begin() { m_is_known = false; }
    float seconds() {
        if (!m_is_known) m_seconds = present_seconds();
        m_is_known = true;
        return m_seconds;
    }

private:
    float m_seconds = 0.0f;
    bool m_is_known = false;
};
inline FrameMoment frame_moment;
