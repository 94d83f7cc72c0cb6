#include <algorithm>

#include "host/system/animation.h"

// What every track and every animation node does by itself. Storing: one child "track" for each track, with its type
// and what the track writes. Type and item of the node are stored with it by the project file.

namespace {

constexpr const char* tracks_name = "tracks";
constexpr const char* track_name = "track";
constexpr const char* track_type_key = "track_type";

// Takes an empty track of that type out of the list; empty if there is none.
CMyComPtr<ITrack> take_empty_track(std::vector<CMyComPtr<ITrack>>& tracks, int type) {
    const auto found = std::find_if(tracks.begin(), tracks.end(), [type](const CMyComPtr<ITrack>& track) {
        return track->get_track_type() == type && track->get_key_count() == 0;
    });
    if (found == tracks.end()) return {};
    CMyComPtr<ITrack> track = *found;
    tracks.erase(found);
    return track;
}

// Held ahead of the list, for that may ask for memory.
ITrack* append(std::vector<ITrack*>& tracks, const CMyComPtr<ITrack>& track) {
    tracks.push_back(track.get());
    track->AddRef();
    return track.get();
}

}  // namespace

std::string host::unknown_track(const ProjectNode& data) {
    const ProjectNode* tracks = data.child(tracks_name);
    if (!tracks) return {};
    for (const auto& place : tracks->children()) {
        int type = 0;
        if (!place->get_property(track_type_key, PAK_INT, &type)) return std::string("no ") + track_type_key;
        if (!find_track_kind(static_cast<unsigned>(type))) return "type " + std::to_string(type);
    }
    return {};
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
    IAnimNode::save_to_node(node, operation);
    pack_node* tracks = node->add_child(tracks_name);
    for (ITrack* track : m_tracks) {
        pack_node* place = tracks->add_child(track_name);
        int type = track->get_track_type();
        place->add_property(track_type_key, PAK_INT, &type);
        track->save_to_node(place, operation);
    }
}

// The stored tracks take the place of those that the node was made with. An empty one of the stored type is used again:
// nodes may remember the tracks that they have made.
void CAnimNodeBase::on_parse(pack_node* node, const load_operation& operation) {
    IAnimNode::on_parse(node, operation);
    pack_node* tracks = node->find_child(tracks_name);
    if (!tracks) return;
    std::vector<CMyComPtr<ITrack>> former(m_tracks.begin(), m_tracks.end());
    for (ITrack* track : m_tracks) track->Release();
    m_tracks.clear();
    for (pack_node* place : *tracks->get_children()) {
        int type = 0;
        if (!place->get_property(track_type_key, PAK_INT, &type)) continue;
        const CMyComPtr<ITrack> empty = take_empty_track(former, type);
        ITrack* const track = empty ? append(m_tracks, empty) : add_track(static_cast<unsigned>(type));
        if (!track) continue;
        track->on_parse(place, operation);
        // A track may store a number of its own; what it was made as is what it is.
        track->set_track_type(type);
    }
}

ITrack* CAnimNodeBase::add_track(unsigned type) {
    const host::TrackKind* kind = host::find_track_kind(type);
    const CMyComPtr<ITrack> track(kind ? kind->creator(type) : nullptr);
    if (!track) return nullptr;
    track->set_track_type(static_cast<int>(type));
    return append(m_tracks, track);
}

void CAnimNodeBase::remove_track(ITrack* track) {
    const auto place = std::find(m_tracks.begin(), m_tracks.end(), track);
    if (place == m_tracks.end()) return;
    m_tracks.erase(place);
    track->Release();
}

std::vector<ITrack*>& CAnimNodeBase::get_tracklist() { return m_tracks; }

ITrack* CAnimNodeBase::get_track(unsigned type) {
    for (ITrack* track : m_tracks)
        if (track->get_track_type() == static_cast<int>(type)) return track;
    return nullptr;
}

EAnimNodeType CAnimNodeBase::get_type() { return m_node_type; }
CGuid CAnimNodeBase::get_internal_item_id() { return m_internal_item_id; }
void CAnimNodeBase::rebind_id(CGuid item_id) { m_internal_item_id = item_id; }
