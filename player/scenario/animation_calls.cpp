// Animation nodes, their tracks and keys, driven directly.

#include <charconv>
#include <variant>

#include "animation/anim_node.h"
#include "animation/keys.h"
#include "host/core/text_conversion.h"
#include "player/scenario/calls.h"

namespace scenario {

namespace {

/// One member of a kind of key.
struct KeyMember {
    const char* name;
    Value (*show)(const IKey&);
    void (*store)(IKey&, const Value&, const std::string& what);
};

template <auto Member, class Key>
constexpr KeyMember key_member(const char* name) {
    return {name, [](const IKey& key) { return value_of(static_cast<const Key&>(key).*Member); },
            [](IKey& key, const Value& value, const std::string& what) {
                auto& target = static_cast<Key&>(key).*Member;
                target = {};
                if (!value.is_null()) read_value(value, what, target);
            }};
}

constexpr KeyMember offset_members[] = {
    key_member<&SGuiOffset::m_offset, SGuiOffset>("m_offset"),
    key_member<&SGuiOffset::m_offset_percent, SGuiOffset>("m_offset_percent"),
};
constexpr KeyMember size_members[] = {
    key_member<&SGuiSize::m_size, SGuiSize>("m_size"),
    key_member<&SGuiSize::m_size_percent, SGuiSize>("m_size_percent"),
};
constexpr KeyMember visible_members[] = {key_member<&SGuiVisible::m_visible, SGuiVisible>("m_visible")};
constexpr KeyMember align_members[] = {key_member<&SGuiAlign::m_align, SGuiAlign>("m_align")};
constexpr KeyMember color_members[] = {key_member<&SGuiColor::m_color, SGuiColor>("m_color")};

struct TrackRow {
    const char* name;
    unsigned type;
    std::span<const KeyMember> members;
};
constexpr TrackRow tracks[] = {
    {"offset", TRACK_TYPE_OFFSET, offset_members},    {"size", TRACK_TYPE_SIZE, size_members},
    {"visible", TRACK_TYPE_VISIBLE, visible_members}, {"align", TRACK_TYPE_ALIGN, align_members},
    {"color", TRACK_TYPE_COLOR, color_members},
};

const TrackRow& track_row(const Value& name, const std::string& what) {
    std::string text;
    read_value(name, what, text);
    for (const TrackRow& row : tracks)
        if (text == row.name) return row;
    throw Failure(what + ": there is no track \"" + text + "\" (offset, size, visible, align or color)");
}

CGuid id_of(const Scenario& scenario, const Value& name, const std::string& what) {
    std::string text;
    read_value(name, what, text);
    if (const host::Actor* actor = scenario.find_actor(text)) return actor->get_id();
    const CGuid id(from_utf8(text).c_str());
    if (id.is_empty()) throw Failure(what + ": there is no item " + short_text(name));
    return id;
}

// By the item, or by the place among all nodes, counted from 1.
CSimpleGUIAnimNode& node_of(const Scenario& scenario, const Value& name, const std::string& what) {
    const auto& nodes = scenario.manager().m_anim_nodes;
    if (name.is_number()) {
        int place = 0;
        read_value(name, what, place);
        if (place < 1 || static_cast<std::size_t>(place) > nodes.size())
            throw Failure(what + ": there is no node " + std::to_string(place) + " of " + std::to_string(nodes.size()));
        for (CSimpleGUIAnimNode* node : nodes)
            if (node && --place == 0) return *node;
    }
    const CGuid id = id_of(scenario, name, what);
    for (CSimpleGUIAnimNode* node : nodes)
        if (node && static_cast<CAnimNodeBase*>(node)->get_internal_item_id() == id) return *node;
    throw Failure(what + ": no node animates " + short_text(name));
}

/// Node and track that a call names first.
struct Track {
    Track(const Scenario& scenario, const Arguments& arguments)
        : row(track_row(arguments.at(1), arguments.where(1, "track"))),
          track(node_of(scenario, arguments.at(0), arguments.where(0, "name")).get_track(row.type)) {
        if (!track) throw Failure(arguments.function() + ": the node has no track \"" + row.name + "\"");
    }
    ITrack* operator->() const { return track; }

    Value show(const IKey& key) const {
        Value shown = {{"time", value_of(key.get_time())}};
        for (const KeyMember& member : row.members) shown[member.name] = member.show(key);
        return shown;
    }

    const TrackRow& row;
    ITrack* track;
};

SAnimateContext moment(const Arguments& arguments, std::size_t time, std::size_t speed) {
    SAnimateContext context;
    context.m_time = arguments.get<float>(time, "time");
    context.m_speed = arguments.get<float>(speed, "speed", 1.0f);
    return context;
}

Value time_of(const IKey* key) { return key ? value_of(key->get_time()) : Value(); }

void keep_tracks(CAnimNodeBase& node, const Arguments& arguments) {
    std::set<unsigned> kept;
    for (const Value& name : arguments.list(1, "tracks"))
        kept.insert(track_row(name, arguments.where(1, "tracks")).type);
    for (const TrackRow& row : tracks)
        if (!kept.contains(row.type)) node.remove_track(node.get_track(row.type));
}

// Nodes that are made one by one need an animation too: it owns them, and the project stores it.
host::Animation& animation_of_nodes(host::Animations& animations) {
    constexpr const wchar_t* name = L"nodes";
    host::Animation* known = animations.find(name);
    return known ? *known : *animations.create_animation(name);
}

Results make_node(Scenario& scenario, const Arguments& arguments) {
    const CGuid id = id_of(scenario, arguments.at(0), arguments.where(0, "name"));
    CMyComPtr<CAnimNodeBase> node =
        AnimSystemLibrary::create_anim_node_by_type(&scenario.engine, ANIM_NODE_TYPE_GUI, id);
    if (!node) throw Failure(arguments.function() + ": no node could be made");
    if (arguments.has(1)) keep_tracks(*node, arguments);
    animation_of_nodes(scenario.engine.animations()).add_anim_node(node.get());
    return {};
}

Results make_key(Scenario& scenario, const Arguments& arguments) {
    const Track track(scenario, arguments);
    const auto time = arguments.get<float>(2, "time");
    static const Value none = Value::array();
    Fields fields(arguments.has(3) ? arguments.at(3) : none, arguments.where(3, "fields"));
    track->create_key(time, arguments.get<bool>(4, "append", false));
    if (IKey* key = track->find_key(time)) {
        for (const KeyMember& member : track.row.members)
            member.store(*key, fields.get(member.name), fields.where(member.name));
        fields.finish();
    }
    return Value(track->get_key_count());
}

Results key_at(Scenario& scenario, const Arguments& arguments) {
    const Track track(scenario, arguments);
    const IKey* key = track->find_key(arguments.get<float>(2, "time"));
    return key ? track.show(*key) : Value();
}

Results remove_key(Scenario& scenario, const Arguments& arguments) {
    const Track track(scenario, arguments);
    track->remove_key(arguments.get<float>(2, "time"));
    return {};
}

Results keys(Scenario& scenario, const Arguments& arguments) {
    const Track track(scenario, arguments);
    Value all = Value::array();
    for (const IKey* key : track->get_keys()) all.push_back(track.show(*key));
    return {std::move(all), track->is_active()};
}

Results near(Scenario& scenario, const Arguments& arguments) {
    const Track track(scenario, arguments);
    IKey* before = nullptr;
    IKey* after = nullptr;
    track->get_near_keys(moment(arguments, 2, 3), before, after);
    return {time_of(before), time_of(after)};
}

Results before(Scenario& scenario, const Arguments& arguments) {
    const Track track(scenario, arguments);
    return time_of(track->find_key_before(arguments.get<float>(2, "time")));
}

Results animate(Scenario& scenario, const Arguments& arguments) {
    CAnimNodeBase& node = node_of(scenario, arguments.at(0), arguments.where(0, "name"));
    node.animate(moment(arguments, 1, 2));
    return {};
}

Results record(Scenario& scenario, const Arguments& arguments) {
    CAnimNodeBase& node = node_of(scenario, arguments.at(0), arguments.where(0, "name"));
    return Value(node.record_key(moment(arguments, 1, 2)));
}

Results evaluate(Scenario& scenario, const Arguments& arguments) {
    CSimpleGUIAnimNode& node = node_of(scenario, arguments.at(0), arguments.where(0, "name"));
    IActor* actor =
        scenario.engine.scene().search_actor_by_guid(static_cast<CAnimNodeBase&>(node).get_internal_item_id());
    VEC2 offset;
    VEC2 size;
    VEC2 offset_percent;
    VEC2 size_percent;
    node.evaluate_at(moment(arguments, 1, 2), actor, offset, size, offset_percent, size_percent);
    return Value{{"offset", value_of(offset)},
                 {"size", value_of(size)},
                 {"offset_percent", value_of(offset_percent)},
                 {"size_percent", value_of(size_percent)}};
}

constexpr HostFunction functions[] = {
    {"node", &make_node}, {"key", &make_key},      {"key_at", &key_at}, {"remove_key", &remove_key},
    {"keys", &keys},      {"near", &near},         {"before", &before}, {"animate", &animate},
    {"record", &record},  {"evaluate", &evaluate},
};

}  // namespace

std::span<const HostFunction> animation_calls() { return functions; }

}  // namespace scenario
