#pragma once

// The project's animations: named lists of nodes that are played together. Knows the clock, no scene, no project file
// and no module but through its nodes.

#include <memory>
#include <vector>

#include "engine/animation.h"
#include "host/system/playback.h"

namespace host {

/// One named animation. Of two that move one item the later in the list has the last word.
class Animation final : public CAnimation {
public:
    explicit Animation(tstringW name) : m_name(std::move(name)) { set_anim_info({}); }
    Animation(const Animation&) = delete;
    Animation& operator=(const Animation&) = delete;
    ~Animation();

    /// Null, and a node of a kind without tracks, are let go of.
    void add_anim_node(IAnimNode* node) override;
    /// Kept as it is; what can't be played (a length that is no number) has a beginning and nothing else. mode_flag 1:
    /// each time is there and back. A factor below 0 plays backward.
    void set_anim_info(const anim_info& info) override;

    const tstringW& name() const { return m_name; }
    const anim_info& info() const { return m_info; }
    /// In the order in which they are applied; none is null. Their items need not exist.
    const std::vector<CMyComPtr<CAnimNodeBase>>& nodes() const { return m_nodes; }

    /// As in Playback, by the clock in use. The items move with the next step, and stay as they are where it ends.
    void start();
    void pause();
    void stop();
    void reverse();
    /// In seconds. Shown at once.
    void seek(double seconds);
    PlayState state() const { return m_playback.state(); }
    /// Where it stands, in seconds.
    double moment() const;

    /// Shows the present moment if it plays; false if it does not.
    bool step();

    /// Played as soon as the project runs.
    bool starts_by_itself = false;

private:
    void show(const PlayMoment& moment);

    tstringW m_name;
    anim_info m_info;
    std::vector<CMyComPtr<CAnimNodeBase>> m_nodes;
    Playback m_playback;
};

class Animations final : public CAnimManager {
public:
    /// A name that stands already may stand again: find() then gives the first.
    Animation* create_animation(const wchar_t* name) override;

    /// In the order of creation; none is null.
    const std::vector<std::unique_ptr<Animation>>& all() const { return m_all; }
    /// The first of that name, or null.
    Animation* find(std::wstring_view name) const;

    void start_those_that_start_by_themselves();
    void stop_all();
    /// Shows the present moment of all that play; false if none does.
    bool step();
    /// The nodes may end here, so it comes ahead of the unloading of the module that made them.
    void clear();

private:
    std::vector<std::unique_ptr<Animation>> m_all;
};

}  // namespace host
