#include "render/fade.h"

#include <cmath>

#include "engine/services.h"

namespace {

constexpr float snap_distance = 0.001f;
constexpr float least_elapsed_seconds = 0.00001f;
constexpr float exponent = 2.0f;

float limited(float weight, float limit) {
    if (!(weight >= 0.0f)) weight = 0.0f;
    return weight > limit ? limit : weight;
}

}  // namespace

float FadeTime::progress() {
    if (!m_is_known) m_progress = Math::Pow(m_elapsed / m_duration, exponent);
    m_is_known = true;
    return m_progress;
}

float next_weight(const Fade& fade, FadeTime& time) {
    if (std::fabs(fade.target - fade.now) < snap_distance) return fade.target;
    if (!(time.duration_seconds() > 0.0f)) return fade.target;
    if (std::fabs(time.elapsed_seconds()) <= least_elapsed_seconds) return fade.now;
    return limited((fade.target - fade.start) * time.progress() + fade.start, fade.limit);
}
