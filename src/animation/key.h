#pragma once

// Key-frame animation of dialogs and shapes: keys, tracks, the node that applies them. Values of one property at
// moments; what they mean to a layout is the node's. Includes the contract; bodies include layout and the manager.

#include <map>
#include <memory>
#include <utility>

#include "engine/engine_system.h"

/// The fields of a key as named properties, in the order of their names. Owns them. Takes memory for the first alone: a
/// show has keys by the hundred thousand, and none that is edited.
class KeyProperties {
public:
    using Map = std::map<tstringW, std::unique_ptr<CZovProperty>>;

    bool empty() const { return all().empty(); }
    std::size_t size() const { return all().size(); }
    bool contains(const tstringW& name) const { return all().contains(name); }
    Map::const_iterator find(const tstringW& name) const { return all().find(name); }
    Map::const_iterator begin() const { return all().begin(); }
    Map::const_iterator end() const { return all().end(); }
    /// There is none of that name.
    void emplace(const tstringW& name, std::unique_ptr<CZovProperty> property) {
        if (!m_map) m_map = std::make_unique<Map>();
        m_map->emplace(name, std::move(property));
    }

private:
    const Map& all() const {
        static const Map none;
        return m_map ? *m_map : none;
    }

    std::unique_ptr<Map> m_map;
};

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
        if (m_properties.contains(name)) return false;
        m_properties.emplace(name, std::make_unique<CZovProperty>(name.c_str(), field, flag));
        return true;
    }
    /// False if there is no such property.
    template <class T>
    bool set_property(const tstringW& name, const T& value, bool) {
        const auto found = m_properties.find(name);
        if (found == m_properties.end()) return false;
        found->second->set_value(value, true);
        return true;
    }
    template <class T>
    bool get_property(const tstringW& name, T& value) const {
        const auto found = m_properties.find(name);
        if (found == m_properties.end()) return false;
        found->second->get_value(value);
        return true;
    }

    KeyProperties m_properties;
    /// Behind the properties, where the values of the kinds of keys follow without a gap.
    float m_time;
};
