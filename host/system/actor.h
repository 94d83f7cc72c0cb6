#pragma once

#include <cstdint>
#include <vector>

#include "engine/scene.h"
#include "host/core/slot_table.h"

namespace host {

class Scene;

/// One node of the scene tree; holds its item. Made and destroyed by its scene alone.
class Actor final : public IActor {
public:
    Actor(Scene& scene, IBaseItem* item, std::uint64_t serial, const CGuid& id, const tstringW& name);
    Actor(const Actor&) = delete;
    Actor& operator=(const Actor&) = delete;

    const tstringW& get_name() const override { return m_name; }
    void set_name(const wchar_t* name, bool notify) override;
    CGuid get_id() const override { return m_id; }
    void set_id(const CGuid& id) override;
    IActor* get_parent() const override { return m_parent; }
    /// A parent that is the actor itself, lies below it, or belongs to another scene is refused; nothing changes then.
    /// Null ends the actor with its item and all below it.
    void set_parent(IActor* parent) override;
    IBaseItem* get_item() const override { return m_item.get(); }
    int get_flag() const override { return m_flag; }
    void set_flag(int flag) { m_flag = flag; }
    bool is_visible() const override { return m_visible; }
    void set_visible(bool visible) override { m_visible = visible; }

    bool has_children() const { return m_first_child != nullptr; }
    /// In order; newcomers stand last.
    std::vector<const Actor*> children() const;
    /// False between Scene::remove and Scene::restore. Says nothing of the actors above.
    bool is_in_scene() const { return m_in_scene; }
    /// Of the item, also while that is on its way out.
    unsigned long type() const { return m_type; }
    /// Counts up with each actor that the scene makes.
    std::uint64_t serial() const { return m_serial; }

private:
    friend class Scene;
    // At the front, in one line of the processor's cache: each frame asks every actor whether it is visible, each
    // look-up and each new view size for its identifier.
    bool m_visible = true;
    bool m_in_scene = true;
    int m_flag = 0;
    CGuid m_id;
    Scene& m_scene;
    CMyComPtr<IBaseItem> m_item;
    // Kept apart from the item, since the index must be found again when the item is half destroyed.
    unsigned long m_type;
    std::uint64_t m_serial;
    tstringW m_name;
    Actor* m_parent = nullptr;
    Actor* m_first_child = nullptr;
    Actor* m_last_child = nullptr;
    // Among the children of the parent, while there is one.
    Actor* m_former = nullptr;
    Actor* m_next = nullptr;
    /// Where the scene keeps it, and where its indexes do.
    std::uint32_t m_place = 0;
    SlotTable::Spot m_spot_by_name;
    SlotTable::Spot m_spot_by_id;
    SlotTable::Spot m_spot_by_any_name;
};

}  // namespace host
