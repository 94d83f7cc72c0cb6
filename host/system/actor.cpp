#include "host/system/actor.h"

#include "host/system/scene.h"

namespace host {

Actor::Actor(Scene& scene, IBaseItem* item, std::uint64_t serial, const CGuid& id, const tstringW& name)
    : m_id(id), m_scene(scene), m_item(item), m_type(item->get_type()), m_serial(serial), m_name(name) {}

std::vector<const Actor*> Actor::children() const {
    std::vector<const Actor*> all;
    for (const Actor* child = m_first_child; child; child = child->m_next) all.push_back(child);
    return all;
}

void Actor::set_name(const wchar_t* name, bool) {
    // Copied ahead of the change: the new name may be a part of the old one.
    tstringW copy = name ? name : L"";
    m_scene.change_key(*this, m_name, copy);
}

void Actor::set_id(const CGuid& id) {
    CGuid copy = id;
    m_scene.change_key(*this, m_id, copy);
}

void Actor::set_parent(IActor* parent) {
    Actor* const above = m_scene.living(parent);
    if (parent && !above) return;
    for (const Actor* at = above; at; at = at->m_parent)
        if (at == this) return;
    if (m_scene.on_parent_changed) m_scene.on_parent_changed(*this, parent);
    if (!parent) {
        // What is out of the tree has no way back into it, so it ends here; nothing of it is touched any more.
        m_scene.destroy_tree(this);
        return;
    }
    Scene::unlink(*this);
    Scene::link(*this, above);
}

}  // namespace host
