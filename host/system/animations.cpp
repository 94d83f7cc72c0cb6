#include "host/system/animations.h"

#include <algorithm>

#include "host/core/clock.h"

namespace host {

// The last made goes first: modules find their newest nodes at the end of their lists.
Animation::~Animation() {
    while (!m_nodes.empty()) m_nodes.pop_back();
}

void Animation::add_anim_node(IAnimNode* node) {
    // Held first, so that one which isn't taken ends here unless someone else holds it.
    const CMyComPtr<IAnimNode> held(node);
    if (auto* with_tracks = dynamic_cast<CAnimNodeBase*>(node)) m_nodes.emplace_back(with_tracks);
}

void Animation::set_anim_info(const anim_info& info) {
    m_info = info;
    const PlayMode mode{double{info.length}, info.mode_flag == 1, info.mode_count};
    m_playback.set_mode(mode, double{info.factor}, now());
}

void Animation::start() { m_playback.start(now()); }
void Animation::pause() { m_playback.pause(now()); }
void Animation::stop() { m_playback.stop(now()); }
void Animation::reverse() { m_playback.reverse(now()); }

void Animation::seek(double seconds) {
    m_playback.seek(seconds, now());
    show(m_playback.moment(now()));
}

double Animation::moment() const { return m_playback.moment(now()).seconds; }

bool Animation::step() {
    if (state() != PlayState::PLAYING) return false;
    const PlayMoment moment = m_playback.moment(now());
    // Ahead of the nodes: whatever they set off finds an animation that has ended.
    if (moment.ended) m_playback.stop(now());
    show(moment);
    return true;
}

void Animation::show(const PlayMoment& moment) {
    SAnimateContext context;
    context.m_time = static_cast<float>(moment.seconds);
    context.m_speed = static_cast<float>(moment.direction);
    for (const auto& node : m_nodes) node->animate(context);
}

Animation* Animations::create_animation(const wchar_t* name) {
    m_all.push_back(std::make_unique<Animation>(name ? name : L""));
    return m_all.back().get();
}

Animation* Animations::find(std::wstring_view name) const {
    const auto has_name = [name](const auto& animation) { return std::wstring_view(animation->name()) == name; };
    const auto found = std::find_if(m_all.begin(), m_all.end(), has_name);
    return found == m_all.end() ? nullptr : found->get();
}

void Animations::start_those_that_start_by_themselves() {
    for (const auto& animation : m_all) {
        if (animation->starts_by_itself) animation->start();
    }
}

void Animations::stop_all() {
    for (const auto& animation : m_all) animation->stop();
}

bool Animations::step() {
    bool any = false;
    for (const auto& animation : m_all) any = animation->step() || any;
    return any;
}

void Animations::clear() {
    while (!m_all.empty()) m_all.pop_back();
}

}  // namespace host
