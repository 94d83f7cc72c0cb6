#pragma once

// What the two kinds of elements have in common: a place that is described in two ways, and fields that a project
// keeps. Free functions over the fields that both classes name alike.

#include "engine/engine_core.h"
#include "layout/noted.h"
#include "layout/persisted_value.h"
#include "layout/placement.h"

template <class Element>
Placement placement_of(const Element& element) {
    return {element.m_iAlignType,     element.m_offsetx,         element.m_offsety,       element.m_bScaleMode,
            element.m_left_scaleMode, element.m_right_scaleMode, element.m_top_scaleMode, element.m_bottom_scaleMode};
}

/// The offsets and fractions come from `placement`; alignment and scale switch stay.
template <class Element>
void store_placement(Element& element, const Placement& placement) {
    element.m_offsetx = placement.offset_x;
    element.m_offsety = placement.offset_y;
    element.m_left_scaleMode = placement.left;
    element.m_right_scaleMode = placement.right;
    element.m_top_scaleMode = placement.top;
    element.m_bottom_scaleMode = placement.bottom;
}

/// One persisted field of a class: its key, its type in the project, and where it lies in the object.
template <class Element>
struct PersistedField {
    const char* key;
    pak_node_type type;
    void* (*address)(Element&);
};

template <class T>
void* address_to_write(T& field) {
    return &field;
}
template <class T, class Owner>
void* address_to_write(Noted<T, Owner>& field) {
    return &field.to_write();
}

/// The address of a member, for the tables of persisted fields.
template <auto Member, class Element>
void* address_of(Element& element) {
    return address_to_write(element.*Member);
}

template <class Element, std::size_t Count>
void save_fields(Element& element, pack_node* node, const PersistedField<Element> (&fields)[Count]) {
    for (const auto& field : fields) node->add_property(field.key, field.type, field.address(element));
}

/// A missing key leaves its field as it is.
template <class Element, std::size_t Count>
void read_fields(Element& element, pack_node* node, const PersistedField<Element> (&fields)[Count]) {
    for (const auto& field : fields) read_value(node, field.key, field.type, field.address(element));
}
