#pragma once

#include <cstdint>
#include <list>

#include "engine/base_item.h"
#include "engine/module_base.h"
#include "engine/text.h"

class XSystem;

/// One node of the scene tree; carries one item.
class IActor {
public:
    /// The name that the author sees and by which scripts find the item.
    virtual const tstringW& get_name() const = 0;
    /// With `notify` editors that show the name hear of it; the module always passes true.
    virtual void set_name(const wchar_t* name, bool notify) = 0;
    virtual CGuid get_id() const = 0;
    virtual void set_id(const CGuid& id) = 0;
    /// Null at the top of the scene.
    virtual IActor* get_parent() const = 0;
    /// Null takes the actor out of the tree.
    virtual void set_parent(IActor* parent) = 0;
    /// The carried item, or null.
    virtual IBaseItem* get_item() const = 0;
    /// A bit set.
    virtual int get_flag() const = 0;
    /// The flag of this actor alone, whatever its parents say.
    virtual bool is_visible() const = 0;
    virtual void set_visible(bool visible) = 0;

protected:
    ~IActor() = default;
};

using item_creator = IBaseItem* (*)(XSystem*);

class CSceneManager {
public:
    /// Makes an item type known, so that the engine can make such items when it reads a project or the author asks for
    /// one. The name is shown to the author.
    ENGINE_API static void regist_item(unsigned long type, tstringW name, item_creator creator, unsigned long flags);

    /// Adds a global item to the list of property items. The module never frees it: the engine holds it until the
    /// module ends.
    virtual void add_property_item(IBaseItem* item, tstringW name) = 0;
    /// The item of that type whose actor has that name, or null.
    virtual IBaseItem* search_item_by_name(const tstringW& name, unsigned long type) = 0;
    /// The actor with that identifier, or null.
    virtual IActor* search_actor_by_guid(const CGuid& id) = 0;
    /// Makes an actor for the item under the parent (null: at the top of the scene), sets the item's m_actor and gives
    /// the actor, which holds the item from then on. Does not call on_ready. The module passes 1 last.
    virtual IActor* create_actor(IBaseItem* item, IActor* parent, int) = 0;
    /// Takes the actor and its item out of the scene for good; the item's destructor runs.
    virtual void delete_actor(IActor* actor) = 0;

protected:
    ~CSceneManager() = default;
};

class CSelectionManager {
public:
    /// The selected actors; never null.
    virtual std::list<IActor*>* get_selection() = 0;
    /// Takes an actor out of the selection. The module passes 1 last.
    virtual void remove_item(IActor* actor, int) = 0;

protected:
    ~CSelectionManager() = default;
};

class CMessageManager {
public:
    /// Delivers the message to the engine's listeners.
    virtual void send_msg(unsigned long id, message_param p1, message_param p2, message_param p3, message_param p4,
                          message_param p5, message_param p6) = 0;

protected:
    ~CMessageManager() = default;
};
