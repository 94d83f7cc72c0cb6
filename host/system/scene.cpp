#include "host/system/scene.h"

#include <array>
#include <cstring>
#include <functional>

#include "engine/numbers.h"
#include "host/core/fetch.h"
#include "host/core/item_store.h"

void CSceneManager::regist_item(unsigned long type, tstringW name, item_creator creator, unsigned long flags) {
    host::register_item_creator(type, name, creator, flags);
}

namespace host {

Scene::~Scene() { clear(); }

void Scene::add_property_item(IBaseItem* item, tstringW name) {
    if (item) m_property_items.push_back({item, std::move(name)});
}

IBaseItem* Scene::search_item_by_name(const tstringW& name, unsigned long type) {
    const TypedName key{NameKey(name), type};
    if (m_is_clearing) {
        const Actor* const actor = find_by(m_by_name, key, true);
        return actor ? actor->get_item() : nullptr;
    }
    const TypedName* const known = m_by_name.find_key(key);
    return known ? known->item : nullptr;
}

// Animations ask for all their items at each step.
IActor* Scene::search_actor_by_guid(const CGuid& id) {
    return m_is_clearing ? find_by(m_by_id, id, true) : m_by_id.find_in_turn(id);
}
Actor* Scene::find_any(std::wstring_view name) const { return find_by(m_by_any_name, NameKey(name), false); }

template <class Index, class Key>
Actor* Scene::find_by(const Index& index, const Key& key, bool in_scene) const {
    if (!m_is_clearing) return index.find(key);
    return m_actors.find(
        [&](const Actor& actor) { return (actor.m_in_scene || !in_scene) && Index::key_of(actor) == key; });
}

bool Scene::can_carry(const IBaseItem* item, const IActor* parent) const {
    return item && !item->m_actor && (!parent || holds(parent));
}

IActor* Scene::create_actor(IBaseItem* item, IActor* parent, int) {
    return can_carry(item, parent) ? create_actor_as(item, parent, new_id(), {}) : nullptr;
}

Actor* Scene::create_actor_as(IBaseItem* item, IActor* parent, const CGuid& id, const tstringW& name) {
    if (!can_carry(item, parent)) return nullptr;
    const std::uint64_t serial = m_next_serial++;
    Actor& actor = m_actors.add(std::make_unique<Actor>(*this, item, serial, id, name));
    try {
        m_alive.insert(&actor);
        link(actor, living(parent));
        enter_indexes(actor);
    } catch (const std::bad_alloc&) {
        destroy_one(actor);
        throw;
    }
    item->m_actor = &actor;
    return &actor;
}

void Scene::delete_actor(IActor* actor) {
    m_alive.fetch_place_of(actor);
    fetch_all(actor, sizeof(Actor));
    if (!holds(actor)) return;
    if (on_delete) on_delete(*living(actor));
    destroy_tree(actor);
}

// Children first: an item that goes may still look at the item above it. A loop, since a project may hang its items one
// below the other as deep as it likes.
void Scene::destroy_tree(IActor* actor) {
    Actor* at = living(actor);
    while (at) {
        while (at->m_last_child) at = at->m_last_child;
        IActor* above = at == actor ? nullptr : at->m_parent;
        destroy_one(*at);
        // The end of an item may have ended others.
        if (above && !holds(above)) above = holds(actor) ? actor : nullptr;
        at = living(above);
    }
}

void Scene::delete_actor_alone(IActor* actor) {
    if (!actor || !holds(actor)) return;
    Actor& alone = *living(actor);
    while (alone.m_first_child) {
        Actor& child = *alone.m_first_child;
        unlink(child);
        link(child, nullptr);
    }
    destroy_one(alone);
}

void Scene::approach_end(const Actor& actor) const {
    m_by_name.approach(actor);
    m_by_id.approach(actor);
    m_by_any_name.approach(actor);
    // An item is a class of some module, and as a rule no larger.
    constexpr std::size_t item_bytes = 384;
    fetch_all(actor.m_item.get(), item_bytes);
    if (actor.m_former) fetch(&actor.m_former->m_next);
    if (actor.m_next) fetch(&actor.m_next->m_former);
}

void Scene::destroy_one(Actor& actor) {
    approach_end(actor);
    m_selection.forget(&actor);
    leave_indexes(actor);
    unlink(actor);
    m_alive.erase(&actor);
    // The actor itself outlives its item: the item may ask it for its name while it goes.
    const std::unique_ptr<Actor> going = m_actors.take(actor);
    CMyComPtr<IBaseItem> item = actor.m_item;
    actor.m_item = {};
    if (IBaseItem* carried = item.get()) {
        // Someone else may hold the item for longer than its actor lives.
        carried->AddRef();
        item = {};
        carried->m_actor = nullptr;
        carried->Release();
    }
}

void Scene::remove(std::list<IActor*> actors) {
    actors.remove_if([this](IActor* actor) { return actor && !holds(actor); });
    for (IActor* named : actors) {
        Actor* const actor = living(named);
        if (!actor) continue;
        m_by_name.remove(actor);
        m_by_id.remove(actor);
        actor->m_in_scene = false;
        m_selection.forget(actor);
    }
    tell(MSG_ACTORS_REMOVED, actors);
}

// Where memory runs out those ahead are back, and the modules know it.
void Scene::restore(std::list<IActor*> actors) {
    actors.remove_if([this](IActor* actor) { return actor && !holds(actor); });
    auto at = actors.begin();
    try {
        for (; at != actors.end(); ++at) {
            if (Actor* const actor = living(*at)) bring_back(*actor);
        }
    } catch (const std::bad_alloc&) {
        actors.erase(at, actors.end());
        tell(MSG_ACTORS_RESTORED, actors);
        throw;
    }
    tell(MSG_ACTORS_RESTORED, actors);
}

void Scene::bring_back(Actor& actor) {
    if (actor.m_in_scene) return;
    if (!m_is_clearing) {
        m_by_name.add(&actor);
        try {
            m_by_id.add(&actor);
        } catch (const std::bad_alloc&) {
            m_by_name.remove(&actor);
            throw;
        }
    }
    actor.m_in_scene = true;
}

void Scene::tell(unsigned long id, std::list<IActor*>& actors) {
    m_messages.send_msg(id, reinterpret_cast<message_param>(&actors), 0, 0, 0, 0, 0);
}

// Taking each actor out of each index would be most of the work. What an item looks up while it goes, few do, is found
// by a walk instead.
void Scene::clear() {
    m_is_clearing = true;
    m_by_name.clear();
    m_by_id.clear();
    m_by_any_name.clear();
    while (!m_actors.empty()) destroy_tree(&m_actors.last());
    m_is_clearing = false;
}

Actor* Scene::find_any(const CGuid& id) const {
    if (Actor* present = find_by(m_by_id, id, true)) return present;
    // Only those that are out of the scene are not in the index.
    return m_actors.find([&](const Actor& actor) { return actor.m_id == id; });
}

std::vector<Actor*> Scene::actors() const {
    std::vector<Actor*> all;
    all.reserve(m_actors.size());
    m_actors.each([&all](Actor& actor) { all.push_back(&actor); });
    return all;
}

std::mt19937_64 Scene::seeded_random() {
    std::random_device machine;
    std::array<std::uint32_t, 8> words;
    for (std::uint32_t& word : words) word = machine();
    std::seed_seq seed(words.begin(), words.end());
    return std::mt19937_64(seed);
}

void Scene::use_counted_ids() {
    m_counted_ids = true;
    m_next_id = 1;
}

// Random identifiers carry the marks of random ones (version 4), counted ones a mark that tells them from the plain
// numbers which people write into projects by hand.
CGuid Scene::new_id() {
    GUID id{};
    for (;;) {
        if (m_counted_ids) {
            id.Data1 = 0xC0000000;
            for (int byte = 0; byte < 8; ++byte)
                id.Data4[7 - byte] = static_cast<std::uint8_t>(m_next_id >> (byte * 8));
            ++m_next_id;
        } else {
            const std::uint64_t halves[2] = {m_random(), m_random()};
            std::memcpy(&id, halves, sizeof id);
            id.Data3 = static_cast<std::uint16_t>((id.Data3 & 0x0FFF) | 0x4000);
            id.Data4[0] = static_cast<std::uint8_t>((id.Data4[0] & 0x3F) | 0x80);
        }
        if (!find_by(m_by_id, CGuid(id), true)) return id;
    }
}

void Scene::enter_indexes(Actor& actor) {
    if (m_is_clearing || !holds(&actor)) return;
    m_by_any_name.add(&actor);
    if (!actor.m_in_scene) return;
    m_by_name.add(&actor);
    m_by_id.add(&actor);
}

void Scene::leave_indexes(Actor& actor) {
    if (m_is_clearing) return;
    m_by_name.remove(&actor);
    m_by_id.remove(&actor);
    m_by_any_name.remove(&actor);
}

void Scene::unlink(Actor& actor) {
    if (!actor.m_parent) return;
    (actor.m_former ? actor.m_former->m_next : actor.m_parent->m_first_child) = actor.m_next;
    (actor.m_next ? actor.m_next->m_former : actor.m_parent->m_last_child) = actor.m_former;
    actor.m_parent = actor.m_former = actor.m_next = nullptr;
}

void Scene::link(Actor& actor, Actor* parent) {
    actor.m_parent = parent;
    if (!parent) return;
    actor.m_former = parent->m_last_child;
    (actor.m_former ? actor.m_former->m_next : parent->m_first_child) = &actor;
    parent->m_last_child = &actor;
}

}  // namespace host
