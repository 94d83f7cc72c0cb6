#pragma once

#include "engine/counted.h"
#include "engine/guid.h"
#include "engine/project_tree.h"

class IActor;
class IBaseDevice;

/// Whatever an actor of the scene can carry, and whatever is stored in a project as an item of its own.
class ENGINE_API IBaseItem : public IMyCom {
public:
    IBaseItem();
    IBaseItem(const IBaseItem&);
    IBaseItem& operator=(const IBaseItem&);
    ~IBaseItem() override;

    /// Writes what belongs to every item. Overrides call it first, then add their own keys.
    virtual void save_to_node(pack_node* node, const save_operation& operation);
    /// Reads the same. Overrides call it first.
    virtual void on_parse(pack_node* node, const load_operation& operation);
    /// Called by the engine when the item's data is complete.
    virtual void on_ready();
    virtual void prepare_run();
    virtual void after_run();
    /// A copy of the item, or null where the item can't be copied.
    virtual IBaseItem* get_cloned(bool deep);

    unsigned long get_type() const { return m_type; }

    /// The item's type number; written by the constructor of the derived class.
    unsigned int m_type = 0;
    /// Written by the legacy import alone; an item is found by the identifier of its actor.
    CGuid m_item_id;
    /// The actor that carries the item; null until the engine has made it. Not owned: the actor holds the item.
    IActor* m_actor = nullptr;
};

/// An item with a side on the rendering device.
class ENGINE_API IBaseDeviceItem : public IBaseItem {
public:
    explicit IBaseDeviceItem(IBaseDevice* device);
    ~IBaseDeviceItem() override;

protected:
    /// Not owned.
    IBaseDevice* m_device;
};

/// Stores a sub-item under the key. The item may be null; the key then gives null when it is read.
ENGINE_API void save_item_to_node(const char* key, pack_node* node, IBaseItem* item, const save_operation& operation);
/// The item stored under the key, or null if there is none. The caller is the first to hold it.
ENGINE_API IBaseItem* load_item_from_node(const char* key, pack_node* node, const load_operation& operation);
