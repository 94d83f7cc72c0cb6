#pragma once

// How the weight of a picture moves towards its target. Values only: the caller fetches the time and stores the result.

/// Seconds of a fade to the pressed picture: over in the first frame, so that a press is felt at once.
inline constexpr float press_seconds = 0.000001f;

struct Fade {
    /// The weight when the mode changed, and at the last frame.
    float start;
    float now;
    /// Where the weight goes, and the most that it may be on the way.
    float target;
    float limit;
};

/// How long a fade has been on its way, and how long it takes in all.
class FadeTime {
public:
    FadeTime() = default;
    FadeTime(float elapsed, float duration) : m_elapsed(elapsed), m_duration(duration) {}
    float elapsed_seconds() const { return m_elapsed; }
    float duration_seconds() const { return m_duration; }
    bool is(float elapsed, float duration) const { return m_elapsed == elapsed && m_duration == duration; }
    /// The square of the share that is over, worked out once.
    float progress();

private:
    float m_elapsed = 0.0f;
    float m_duration = 0.0f;
    float m_progress = 0.0f;
    bool m_is_known = false;
};

/// The new weight, 0 to the limit. The curve starts slowly and runs past its target; the limits, not the clock, stop
/// it, so a fade that was cut off goes on from where it stood. A duration of 0 or less takes the target at once.
float next_weight(const Fade& fade, FadeTime& time);
