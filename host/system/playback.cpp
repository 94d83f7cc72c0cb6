#include "host/system/playback.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace host {
namespace {

bool has_length(const PlayMode& mode) { return std::isfinite(mode.length) && mode.length > 0.0; }

// How long one time takes.
double period_of(const PlayMode& mode) { return mode.there_and_back ? 2.0 * mode.length : mode.length; }

}  // namespace

double whole_length(const PlayMode& mode) {
    if (!has_length(mode)) return 0.0;
    return mode.count < 0 ? std::numeric_limits<double>::infinity() : period_of(mode) * mode.count;
}

PlayMoment moment_at(const PlayMode& mode, double travelled, int direction) {
    const double whole = whole_length(mode);
    if (whole == 0.0) return {0.0, direction, true};
    const bool ended = direction > 0 ? travelled >= whole : travelled <= 0.0 && std::isfinite(whole);
    if (std::isfinite(whole)) travelled = std::clamp(travelled, 0.0, whole);

    const double period = period_of(mode);
    // Behind the last time, forward or backward, there is none that could rule at its edge.
    const bool upper_edge_belongs = (direction > 0) == ended;
    const double laps = travelled / period;
    const double lap = upper_edge_belongs ? std::ceil(laps) - 1.0 : std::floor(laps);
    const double inside = std::clamp(travelled - lap * period, 0.0, period);
    const bool on_the_way_back = inside > mode.length || (ended && direction > 0 && mode.there_and_back);
    return {on_the_way_back ? period - inside : inside, on_the_way_back ? -direction : direction, ended};
}

double Playback::travelled(double now) const {
    if (m_state != PlayState::PLAYING) return m_base;
    const double reached = m_base + std::max(now - m_since, 0.0) * std::abs(m_speed) * direction();
    const double whole = whole_length(m_mode);
    return std::isfinite(whole) ? std::clamp(reached, 0.0, whole) : reached;
}

void Playback::stay_at(double travelled, double now) {
    m_is_sought = false;
    m_base = travelled;
    m_since = now;
}

void Playback::set_mode(const PlayMode& mode, double speed, double now) {
    const bool stays = m_is_sought && m_state != PlayState::PLAYING;
    stay_at(travelled(now), now);
    m_is_sought = stays;
    m_mode = mode;
    m_speed = std::isfinite(speed) ? speed : 0.0;
}

// Without an end there is no last time to begin backward from, so it is the first one.
void Playback::play_from_the_start(double now) {
    const double whole = whole_length(m_mode);
    stay_at(direction() > 0 ? 0.0 : std::isfinite(whole) ? whole : period_of(m_mode), now);
    m_state = PlayState::PLAYING;
}

void Playback::start(double now) {
    if (m_state == PlayState::PAUSED) {
        stay_at(m_base, now);
        m_state = PlayState::PLAYING;
        return;
    }
    m_turn = 1;
    play_from_the_start(now);
}

void Playback::pause(double now) {
    if (m_state != PlayState::PLAYING) return;
    stay_at(travelled(now), now);
    m_state = PlayState::PAUSED;
}

void Playback::stop(double now) {
    stay_at(travelled(now), now);
    m_state = PlayState::STOPPED;
}

void Playback::seek(double seconds, double now) {
    const double length = has_length(m_mode) ? m_mode.length : 0.0;
    stay_at(seconds > 0.0 ? std::min(seconds, length) : 0.0, now);
    m_is_sought = true;
    if (m_state == PlayState::STOPPED) m_state = PlayState::PAUSED;
}

void Playback::reverse(double now) {
    stay_at(travelled(now), now);
    m_turn = -m_turn;
    m_state = PlayState::PLAYING;
    if (moment(now).ended) m_turn = -m_turn;
}

PlayMoment Playback::moment(double now) const {
    PlayMoment moment = moment_at(m_mode, travelled(now), direction());
    // Who asked for the last moment sees it, though the next time to be played would begin there.
    if (m_is_sought && m_state != PlayState::PLAYING) moment.seconds = m_base;
    return moment;
}

}  // namespace host
