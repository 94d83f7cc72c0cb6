#include "scratch_engine/scene.h"

#include <algorithm>

void ScratchScene::add_property_item(IBaseItem* item, tstringW name) { property_items.emplace_back(item, name); }

IBaseItem* ScratchScene::search_item_by_name(const tstringW& name, unsigned long type) {
    for (const auto& actor : actors) {
        if (actor->item && actor->name == name && actor->item->get_type() == type) return actor->item.get();
    }
    return nullptr;
}

IActor* ScratchScene::search_actor_by_guid(const CGuid& id) {
    for (const auto& actor : actors) {
        if (actor->id == id) return actor.get();
    }
    return nullptr;
}

IActor* ScratchScene::create_actor(IBaseItem* item, IActor* parent, int) {
    actors.push_back(std::make_unique<ScratchActor>());
    ScratchActor& actor = *actors.back();
    actor.id = GUID{m_next_id++, 0, 0, {}};
    actor.parent = parent;
    actor.item = CMyComPtr<IBaseItem>(item);
    if (item) item->m_actor = &actor;
    return &actor;
}

void ScratchScene::delete_actor(IActor* actor) {
    for (std::size_t at = actors.size(); at-- > 0;) {
        if (at < actors.size() && actors[at]->parent == actor) delete_actor(actors[at].get());
    }
    delete_alone(actor);
}

void ScratchScene::delete_alone(IActor* actor) {
    const auto place = std::find_if(actors.begin(), actors.end(), [&](const auto& a) { return a.get() == actor; });
    const std::unique_ptr<ScratchActor> gone = std::move(*place);
    actors.erase(place);
    for (const auto& other : actors) {
        if (other->parent == actor) other->parent = nullptr;
    }
    gone->item = {};
}

void ScratchScene::clear() {
    while (!actors.empty()) delete_alone(actors.back().get());
}
