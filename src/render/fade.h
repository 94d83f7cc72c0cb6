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
    FadeTime(float elapsed, float duration) : elapsed_seconds(elapsed), duration_seconds(duration) {}
    /// The square of the share that is over, worked out once for all pictures of a shape.
    float progress();

    const float elapsed_seconds;
    const float duration_seconds;

private:
    float m_progress = 0.0f;
    bool m_is_known = false;
};

/// The new weight, 0 to the limit. The curve starts slowly and runs past its target; the limits, not the clock, stop
/// it, so a fade that was cut off goes on from where it stood. A duration of 0 or less takes the target at once.
float next_weight(const Fade& fade, FadeTime& time);
