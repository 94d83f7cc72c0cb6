#pragma once

#include <list>

#include "engine/text.h"

/// What a property holds. The address handed over with each is that of: PAK_INT a 32-bit int; PAK_VEC3 a VEC3;
/// PAK_FLOAT a float; PAK_RECT a CRect; PAK_VEC4 a VEC4; PAK_BOOL a 32-bit int used as a truth value.
enum pak_node_type : int {
    PAK_INT = 3,
    PAK_VEC3 = 8,
    PAK_FLOAT = 9,
    PAK_RECT = 13,
    PAK_VEC4 = 16,
    PAK_BOOL = 21,
};

/// The engine's own records of a load and of a save. The module only hands them on.
struct load_operation;
struct save_operation;

/// One node of the current project tree: a name, typed properties, children. The engine owns it.
class pack_node {
public:
    /// Makes a child and gives it. Names may repeat.
    virtual pack_node* add_child(const char* name) = 0;
    /// The first child of that name, or null.
    virtual pack_node* find_child(const char* name) = 0;
    /// The children in their order; never null.
    virtual const std::list<pack_node*>* get_children() const = 0;
    /// Stores a copy of the value under the key.
    virtual void add_property(const char* key, pak_node_type type, void* value) = 0;
    /// True and the value written if there is such a key of that type; else false and the value untouched.
    virtual bool get_property(const char* key, pak_node_type type, void* value) = 0;
    virtual void add_string_property(const char* key, const tstringW& text) = 0;
    virtual bool get_string_property(const char* key, tstringW& text) = 0;

protected:
    ~pack_node() = default;
};
