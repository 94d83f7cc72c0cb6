#pragma once

// Where an animation stands, from how long it has been playing. Values alone: no clock, no node.

namespace host {

/// How often a length of time is played, and which way.
struct PlayMode {
    /// In seconds. What is not above 0 has a beginning and nothing else.
    double length = 0.0;
    /// Each time it is played to the end and back to the beginning.
    bool there_and_back = false;
    /// How often; below 0: without an end.
    int count = -1;
};

/// A moment of an animation.
struct PlayMoment {
    /// In seconds, 0 to the length.
    double seconds = 0.0;
    /// 1: its time runs forward there; -1: backward.
    int direction = 1;
    /// Nothing is left to play.
    bool ended = false;
};

/// All that is played, end to end in seconds; infinity without an end.
double whole_length(const PlayMode& mode);
/// The moment that lies `travelled` seconds into all that is played, in the direction 1 or -1. Where one time ends and
/// the next follows, the next one rules.
PlayMoment moment_at(const PlayMode& mode, double travelled, int direction);

enum class PlayState { STOPPED, PLAYING, PAUSED };

/// An animation's play. The present is handed in, in the seconds of some clock that only goes forward; the moment
/// follows from the time at which the play was last touched, so that it does not depend on the frames in between.
class Playback {
public:
    /// `speed` is 1 as recorded, below 0 backward; what is no finite number counts as 0. Goes on from where it stands.
    void set_mode(const PlayMode& mode, double speed, double now);

    /// Goes on from a pause; else plays from the beginning, which under a speed below 0 is the end.
    void start(double now);
    /// Stands still until the next start. Nothing happens unless it plays.
    void pause(double now);
    /// The next start is from the beginning.
    void stop(double now);
    /// To this moment of the first time that it is played, kept within the length. What plays goes on from there; what
    /// does not is paused there.
    void seek(double seconds, double now);
    /// Turns round and plays from where it stands. Where nothing is left that way it plays the way that is left: at its
    /// beginning to the end, at its end to the beginning.
    void reverse(double now);

    PlayState state() const { return m_state; }
    PlayMoment moment(double now) const;

private:
    double travelled(double now) const;
    int direction() const { return m_speed < 0.0 ? -m_turn : m_turn; }
    void stay_at(double travelled, double now);
    void play_from_the_start(double now);

    PlayMode m_mode;
    double m_speed = 1.0;
    PlayState m_state = PlayState::STOPPED;
    // 1, or -1 once it has been reversed.
    int m_turn = 1;
    // Where it stood at that time.
    double m_base = 0.0;
    double m_since = 0.0;
    // It stands at a moment of the first time, to which it was taken.
    bool m_is_sought = false;
};

}  // namespace host
