#pragma once

// The scene: the tree of actors, their look-up, their removal and their end. Knows no project file and no module but
// through the messages that it sends.

#include <functional>
#include <list>
#include <memory>
#include <random>
#include <string_view>
#include <vector>

#include "host/core/id_set.h"
#include "host/core/name_key.h"
#include "host/core/pointer_set.h"
#include "host/system/actor.h"
#include "host/system/actor_list.h"
#include "host/system/earliest_index.h"
#include "host/system/messages.h"
#include "host/system/selection.h"

namespace host {

/// Item type and name together: of each type there may be an item of the same name.
struct TypedName {
    NameKey name;
    unsigned long type;
    // What a look-up is after, and no part of what is compared: it stands here so that the actor need not be read.
    IBaseItem* item = nullptr;
    friend bool operator==(const TypedName& a, const TypedName& b) { return a.name == b.name && a.type == b.type; }
};
struct TypedNameOf {
    TypedName operator()(const Actor& actor) const {
        return {NameKey(actor.get_name()), actor.type(), actor.get_item()};
    }
};
struct NameHash {
    std::uint64_t operator()(const NameKey& name) const { return name.hash(); }
};
struct TypedNameHash {
    std::uint64_t operator()(const TypedName& key) const { return key.name.hash() ^ key.type * 0x9E3779B97F4A7C15u; }
};
struct NameOf {
    NameKey operator()(const Actor& actor) const { return NameKey(actor.get_name()); }
};
struct IdOf {
    CGuid operator()(const Actor& actor) const { return actor.get_id(); }
};

/// A global item that the author edits. No module frees it: the list holds it.
struct PropertyItem {
    CMyComPtr<IBaseItem> item;
    tstringW name;
};

class Scene final : public CSceneManager {
public:
    /// Both must outlive the scene.
    Scene(MessageManager& messages, SelectionManager& selection) : m_messages(messages), m_selection(selection) {}
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;
    ~Scene();

    void add_property_item(IBaseItem* item, tstringW name) override;
    /// Actors out of the scene are not found; of several the earliest created wins.
    IBaseItem* search_item_by_name(const tstringW& name, unsigned long type) override;
    IActor* search_actor_by_guid(const CGuid& id) override;
    /// Null for a null item, an item that has an actor already, or a parent of another scene.
    IActor* create_actor(IBaseItem* item, IActor* parent, int) override;
    /// The same with an identifier and a name of the caller's choice from the start.
    Actor* create_actor_as(IBaseItem* item, IActor* parent, const CGuid& id, const tstringW& name);
    /// The actors below go with it, each ahead of the one above it. Null, and an actor that is no more, are passed
    /// over.
    void delete_actor(IActor* actor) override;

    /// Destroys the actor and its item; actors below stay in the scene at its top.
    void delete_actor_alone(IActor* actor);
    /// Out of the scene so that they can come back: alive, but found by no look-up and saved by no one. Their place in
    /// the tree is kept. Modules hear of all of them in one message; null entries stay in the list.
    void remove(std::list<IActor*> actors);
    void restore(std::list<IActor*> actors);
    /// Destroys every actor, the last created first.
    void clear();

    /// The actor with that identifier, removed ones included, or null. Looks at all only where the index has none.
    Actor* find_any(const CGuid& id) const;
    /// The earliest created actor of that name, removed ones included, or null.
    Actor* find_any(std::wstring_view name) const;
    /// Every actor in order of creation, removed ones included.
    std::vector<Actor*> actors() const;
    std::size_t size() const { return m_actors.size(); }
    /// True if the actor lives in this scene.
    bool holds(const IActor* actor) const { return m_alive.contains(actor); }
    const std::vector<PropertyItem>& property_items() const { return m_property_items; }
    /// The items may end here, so it comes ahead of the unloading of the module that made them.
    void forget_property_items() { m_property_items.clear(); }

    /// From now on identifiers count up from 1 instead of being random, so that two runs make the same ones.
    void use_counted_ids();

    /// An identifier that no actor in the scene has.
    CGuid new_id();

    /// Hear of each call of set_parent and of delete_actor, ahead of it; may be empty.
    std::function<void(Actor&, IActor* parent)> on_parent_changed;
    std::function<void(Actor&)> on_delete;

private:
    friend class Actor;
    bool can_carry(const IBaseItem* item, const IActor* parent) const;
    static std::mt19937_64 seeded_random();
    /// The earliest created actor with that key.
    template <class Index, class Key>
    Actor* find_by(const Index& index, const Key& key, bool in_scene) const;
    void enter_indexes(Actor& actor);
    void leave_indexes(Actor& actor);
    void destroy_tree(IActor* actor);
    void destroy_one(Actor& actor);
    void bring_back(Actor& actor);
    /// Exchanges the actor's identifier or name for the value. Without memory for that nothing changes.
    template <class Key>
    void change_key(Actor& actor, Key& key, Key& value) {
        // One that is on its way out is in no index any more.
        if (!holds(&actor)) return std::swap(key, value);
        leave_indexes(actor);
        std::swap(key, value);
        try {
            enter_indexes(actor);
        } catch (const std::bad_alloc&) {
            leave_indexes(actor);
            std::swap(key, value);
            // What it had held is free again.
            enter_indexes(actor);
            throw;
        }
    }
    void tell(unsigned long id, std::list<IActor*>& actors);
    /// Behind the interface; null for what is no actor of this scene, of which nothing is touched.
    Actor* living(IActor* actor) const { return holds(actor) ? static_cast<Actor*>(actor) : nullptr; }
    /// Has fetched what the actor's end will read.
    void approach_end(const Actor& actor) const;
    static void unlink(Actor& actor);
    static void link(Actor& actor, Actor* parent);

    MessageManager& m_messages;
    SelectionManager& m_selection;
    ActorList<Actor, &Actor::m_place> m_actors;
    // Each is an Actor.
    PointerSet<IActor> m_alive;
    EarliestIndex<Actor, TypedNameOf, TypedNameHash, &Actor::m_spot_by_name> m_by_name;
    EarliestIndex<Actor, IdOf, IdHash, &Actor::m_spot_by_id, true> m_by_id;
    // The others hold what is in the scene; this one all that lives.
    EarliestIndex<Actor, NameOf, NameHash, &Actor::m_spot_by_any_name> m_by_any_name;
    // The indexes are empty and stay so until all actors are gone.
    bool m_is_clearing = false;
    std::vector<PropertyItem> m_property_items;
    std::uint64_t m_next_serial = 1;
    std::uint64_t m_next_id = 1;
    bool m_counted_ids = false;
    /// Seeded by the machine once: asking it for each identifier costs more than all the rest of an item.
    std::mt19937_64 m_random = seeded_random();
};

}  // namespace host
