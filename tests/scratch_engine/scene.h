#pragma once

// A flat store of actors that form a tree by their parents.

#include <memory>
#include <new>
#include <vector>

#include "engine/engine_system.h"

class ScratchActor final : public IActor {
public:
    const tstringW& get_name() const override { return name; }
    void set_name(const wchar_t* text, bool) override { name = text; }
    CGuid get_id() const override { return id; }
    void set_id(const CGuid& value) override { id = value; }
    IActor* get_parent() const override { return parent; }
    void set_parent(IActor* value) override {
        if (is_fixed) throw std::bad_alloc();
        parent = value;
    }
    IBaseItem* get_item() const override { return item.get(); }
    int get_flag() const override { return 0; }
    bool is_visible() const override { return visible; }
    void set_visible(bool value) override { visible = value; }

    tstringW name;
    CGuid id;
    IActor* parent = nullptr;
    CMyComPtr<IBaseItem> item;
    bool visible = true;
    /// There is no memory for another parent.
    bool is_fixed = false;
};

class ScratchScene final : public CSceneManager {
public:
    ~ScratchScene() { clear(); }

    void add_property_item(IBaseItem* item, tstringW name) override;
    IBaseItem* search_item_by_name(const tstringW& name, unsigned long type) override;
    IActor* search_actor_by_guid(const CGuid& id) override;
    IActor* create_actor(IBaseItem* item, IActor* parent, int) override;
    /// The children go first.
    void delete_actor(IActor* actor) override;
    /// Leaves the children, without a parent.
    void delete_alone(IActor* actor);
    void clear();

    std::vector<std::unique_ptr<ScratchActor>> actors;
    std::vector<std::pair<CMyComPtr<IBaseItem>, tstringW>> property_items;

private:
    std::uint32_t m_next_id = 1;
};
