#pragma once

#include "animation/key.h"

// The five kinds of keys. Place and size are held in two forms at all times, pixels and fractions of the frame; the
// alignment at the key's moment says which of them leads. All fields start as zeros.

/// What the kinds share: their fields as named properties, by a table of each kind.
template <class Key>
class KeyWithFields : public IKey {
public:
    explicit KeyWithFields(float time) : IKey(time) {}
    void create_properties() override;
    void write_properties() override;
    void read_properties() override;
    void save_to_node(pack_node* node, const save_operation& operation) override;
    void on_parse(pack_node* node, const load_operation& operation) override;
};

/// A place: pixels from the anchor to the left top corner, or fractions of the frame.
class SGuiOffset : public KeyWithFields<SGuiOffset> {
public:
    explicit SGuiOffset(float time) : KeyWithFields(time) {}

    VEC2 m_offset;
    VEC2 m_offset_percent;
};

/// A size: x is the width, y the height.
class SGuiSize : public KeyWithFields<SGuiSize> {
public:
    explicit SGuiSize(float time) : KeyWithFields(time) {}

    VEC2 m_size;
    VEC2 m_size_percent;
};

class SGuiVisible : public KeyWithFields<SGuiVisible> {
public:
    explicit SGuiVisible(float time) : KeyWithFields(time) {}

    /// Not 0: visible.
    int m_visible = 0;
};

class SGuiAlign : public KeyWithFields<SGuiAlign> {
public:
    explicit SGuiAlign(float time) : KeyWithFields(time) {}

    /// 0 to 8: an anchor; 9: the scale mode.
    int m_align = 0;
};

class SGuiColor : public KeyWithFields<SGuiColor> {
public:
    explicit SGuiColor(float time) : KeyWithFields(time) {}

    VEC4 m_color;
};
