#include "host/system/animation.h"

#include <map>

#include "host/core/item_store.h"

namespace host {
namespace {

std::map<unsigned, AnimNodeKind>& node_kinds() {
    static std::map<unsigned, AnimNodeKind> all;
    return all;
}

std::map<unsigned, TrackKind>& track_kinds() {
    static std::map<unsigned, TrackKind> all;
    return all;
}

template <class Kinds>
auto find_in(const Kinds& kinds, unsigned type) -> decltype(&kinds.begin()->second) {
    const auto kind = kinds.find(type);
    return kind == kinds.end() || !kind->second.creator ? nullptr : &kind->second;
}

}  // namespace

void forget_anim_kinds(const void* owner) {
    std::erase_if(node_kinds(), [owner](const auto& entry) { return entry.second.owner == owner; });
    std::erase_if(track_kinds(), [owner](const auto& entry) { return entry.second.owner == owner; });
}

const AnimNodeKind* find_anim_node_kind(unsigned type) { return find_in(node_kinds(), type); }
const TrackKind* find_track_kind(unsigned type) { return find_in(track_kinds(), type); }

}  // namespace host

void AnimSystemLibrary::register_node_creator_by_type(unsigned type, const tstringW& name, anim_node_creator creator,
                                                      std::vector<unsigned> track_types,
                                                      std::set<unsigned long> item_types) {
    host::node_kinds()[type] = {
        type, name, creator, host::registering_owner(), std::move(track_types), std::move(item_types)};
}

void AnimSystemLibrary::register_track_creator_by_type(unsigned type, const tstringW& name, track_creator creator,
                                                       unsigned long) {
    host::track_kinds()[type] = {type, name, creator, host::registering_owner()};
}

CAnimNodeBase* AnimSystemLibrary::create_anim_node_by_type(XSystem* system, unsigned type, CGuid item_id) {
    const host::AnimNodeKind* kind = host::find_anim_node_kind(type);
    IAnimNode* made = kind ? kind->creator(system, type, item_id) : nullptr;
    auto* node = dynamic_cast<CAnimNodeBase*>(made);
    if (node) {
        node->create_tracks();
    } else if (made) {
        // A node of another family can't have tracks; held once and let go, it is destroyed.
        const CMyComPtr<IAnimNode> unwanted(made);
    }
    return node;
}
