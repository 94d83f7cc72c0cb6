// Registration of types, and the bases of tracks and nodes.

#include <algorithm>

#include "scratch_engine/registry.h"

void CSceneManager::regist_item(unsigned long type, tstringW name, item_creator creator, unsigned long flags) {
    registry().items.push_back({type, name, creator, flags});
    registry().order.emplace_back("item");
}

void AnimSystemLibrary::register_node_creator_by_type(unsigned type, const tstringW& name, anim_node_creator creator,
                                                      std::vector<unsigned> tracks, std::set<unsigned long> items) {
    registry().nodes.push_back({type, name, creator, std::move(tracks), std::move(items)});
    registry().order.emplace_back("node");
}

void AnimSystemLibrary::register_track_creator_by_type(unsigned type, const tstringW& name, track_creator creator,
                                                       unsigned long flags) {
    registry().tracks.push_back({type, name, creator, flags});
    registry().order.emplace_back("track");
}

CAnimNodeBase* AnimSystemLibrary::create_anim_node_by_type(XSystem* system, unsigned type, CGuid item_id) {
    for (const Registry::Node& row : registry().nodes) {
        if (row.type != type) continue;
        auto* node = static_cast<CAnimNodeBase*>(row.creator(system, type, item_id));
        if (node) node->create_tracks();
        return node;
    }
    return nullptr;
}

ITrack::ITrack() = default;
ITrack::~ITrack() = default;
void ITrack::get_value(float, VEC4&) {}
void ITrack::get_value(float, QUAT&) {}
void ITrack::get_value(float, float&) {}
void ITrack::get_key_info(const SAnimateContext&, CGuid&, float&) {}
void ITrack::get_key_info(const SAnimateContext&, const wchar_t*&, float&) {}
void ITrack::smooth() {}

IAnimNode::IAnimNode() = default;
IAnimNode::~IAnimNode() = default;

CAnimNodeBase::CAnimNodeBase(EAnimNodeType type, const CGuid& item_id)
    : m_node_type(type), m_internal_item_id(item_id) {}
CAnimNodeBase::~CAnimNodeBase() {
    for (ITrack* track : m_tracks) track->Release();
}
void CAnimNodeBase::save_to_node(pack_node* node, const save_operation& operation) {
    IBaseItem::save_to_node(node, operation);
}
void CAnimNodeBase::on_parse(pack_node* node, const load_operation& operation) { IBaseItem::on_parse(node, operation); }
ITrack* CAnimNodeBase::add_track(unsigned type) {
    for (const Registry::Track& row : registry().tracks) {
        ITrack* track = row.type == type ? row.creator(type) : nullptr;
        if (!track) continue;
        track->AddRef();
        track->set_track_type(static_cast<int>(type));
        m_tracks.push_back(track);
        return track;
    }
    return nullptr;
}
void CAnimNodeBase::remove_track(ITrack* track) {
    if (std::erase(m_tracks, track)) track->Release();
}
std::vector<ITrack*>& CAnimNodeBase::get_tracklist() { return m_tracks; }
ITrack* CAnimNodeBase::get_track(unsigned type) {
    for (ITrack* track : m_tracks) {
        if (track->get_track_type() == static_cast<int>(type)) return track;
    }
    return nullptr;
}
EAnimNodeType CAnimNodeBase::get_type() { return m_node_type; }
CGuid CAnimNodeBase::get_internal_item_id() { return m_internal_item_id; }
void CAnimNodeBase::rebind_id(CGuid item_id) { m_internal_item_id = item_id; }
