#pragma once

// Key-frame animation of dialogs and shapes: keys, tracks, the node that applies them. Values of one property at
// moments; what they mean to a layout is the node's. Includes the contract; bodies include layout and the manager.

#include <map>
#include <memory>

#include "engine/engine_system.h"

/// One value of an animated property at one moment.
class IKey {
public:
    explicit IKey(float time) : m_time(time) {}
    IKey(const IKey&) = delete;
    IKey& operator=(const IKey&) = delete;

    virtual ~IKey();
    /// Makes the key's fields known as named properties, for an editor. A second call makes nothing.
    virtual void create_properties() = 0;
    /// From the fields to the properties, and back.
    virtual void write_properties() = 0;
    virtual void read_properties() = 0;
    virtual void save_to_node(pack_node* node, const save_operation& operation);
    virtual void on_parse(pack_node* node, const load_operation& operation);

    /// In seconds of the animation.
    float get_time() const { return m_time; }

    /// False if there is such a property already; nothing is made then. The field must outlive the key's properties.
    template <class T>
    bool add_property(const tstringW& name, T& field, bool flag) {
        if (!m_properties) m_properties = std::make_unique<Properties>();
        if (m_properties->contains(name)) return false;
        m_properties->emplace(name, std::make_unique<CZovProperty>(name.c_str(), field, flag));
        return true;
    }
    /// False if there is no such property.
    template <class T>
    bool set_property(const tstringW& name, const T& value, bool) {
        CZovProperty* property = find_property(name);
        if (property) property->set_value(value, true);
        return property;
    }
    template <class T>
    bool get_property(const tstringW& name, T& value) const {
        const CZovProperty* property = find_property(name);
        if (property) property->get_value(value);
        return property;
    }

    using Properties = std::map<tstringW, std::unique_ptr<CZovProperty>>;
    /// Null until an editor asks for the first. A show has keys by the hundred thousand, and none that is edited.
    std::unique_ptr<Properties> m_properties;
    /// Behind the pointer, where the values of the kinds of keys follow without a gap.
    float m_time;

private:
    CZovProperty* find_property(const tstringW& name) const;
};
