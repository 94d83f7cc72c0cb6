#pragma once

#include "layout/seconds.h"
#include "render/fade.h"

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

    /// Shapes that have changed together fade together: the time of the last one, if it is the same.
    FadeTime& fade(float begin, float duration) {
        const float elapsed = seconds() - begin;
        if (!m_fade.is(elapsed, duration)) m_fade = FadeTime(elapsed, duration);
        return m_fade;
    }

private:
    FadeTime m_fade;
    float m_seconds = 0.0f;
    bool m_is_known = false;
};
inline FrameMoment frame_moment;
