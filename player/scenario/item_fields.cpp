#include "player/scenario/item_fields.h"

#include <variant>

#include "layout/dialog.h"

namespace scenario {

namespace {

/// One member of a class, whatever its kind.
template <class Item>
struct Member {
    const char* name;
    std::variant<int Item::*, bool Item::*, float Item::*, CRect Item::*, VEC4 Item::*, tstringW Item::*,
                 float (Item::*)[4], font_org_position Item::*, CGuid Item::*, Noted<int, CSimpleGUIShape> Item::*,
                 Noted<CRect, CSimpleGUIShape> Item::*>
        place;
};

// A list of its own, since both classes name these fields alike but share no base that has them.
template <class Item>
constexpr auto common_members() {
    return std::array{
        Member<Item>{"m_item_id", &Item::m_item_id},
        Member<Item>{"m_in_scene", &Item::m_in_scene},
        Member<Item>{"m_rect", &Item::m_rect},
        Member<Item>{"m_iAlignType", &Item::m_iAlignType},
        Member<Item>{"m_offsetx", &Item::m_offsetx},
        Member<Item>{"m_offsety", &Item::m_offsety},
        Member<Item>{"m_bScaleMode", &Item::m_bScaleMode},
        Member<Item>{"m_left_scaleMode", &Item::m_left_scaleMode},
        Member<Item>{"m_right_scaleMode", &Item::m_right_scaleMode},
        Member<Item>{"m_top_scaleMode", &Item::m_top_scaleMode},
        Member<Item>{"m_bottom_scaleMode", &Item::m_bottom_scaleMode},
        Member<Item>{"m_order_num", &Item::m_order_num},
    };
}

constexpr Member<CSimpleGUIDialog> dialog_members[] = {
    {"m_last_rect", &CSimpleGUIDialog::m_last_rect},
};

constexpr Member<CSimpleGUIShape> shape_members[] = {
    {"m_color", &CSimpleGUIShape::m_color},
    {"m_title", &CSimpleGUIShape::m_title},
    {"m_texture_mode", &CSimpleGUIShape::m_texture_mode},
    {"m_fade_start", &CSimpleGUIShape::m_fade_start},
    {"m_fade_now", &CSimpleGUIShape::m_fade_now},
    {"m_mode_time", &CSimpleGUIShape::m_mode_time},
    {"m_font_org_position", &CSimpleGUIShape::m_font_org_position},
    {"m_font_pos_x", &CSimpleGUIShape::m_font_pos_x},
    {"m_font_pos_y", &CSimpleGUIShape::m_font_pos_y},
    {"m_font_color", &CSimpleGUIShape::m_font_color},
    {"m_font_shadow", &CSimpleGUIShape::m_font_shadow},
    {"m_bk_image", &CSimpleGUIShape::m_bk_image},
    {"m_is_static_pic", &CSimpleGUIShape::m_is_static_pic},
    {"m_font_type", &CSimpleGUIShape::m_font_type},
    {"m_is_usable", &CSimpleGUIShape::m_is_usable},
    {"m_primary_import", &CSimpleGUIShape::m_primary_import},
};

void store(const Value& value, const std::string& what, font_org_position& position) {
    int number = 0;
    read_value(value, what, number);
    position = static_cast<font_org_position>(number);
}
template <class T>
void store(const Value& value, const std::string& what, Noted<T, CSimpleGUIShape>& target) {
    read_value(value, what, target.to_write());
}
template <class T>
void store(const Value& value, const std::string& what, T& target) {
    read_value(value, what, target);
}

Value show(font_org_position position) { return static_cast<int>(position); }
template <class T>
Value show(const Noted<T, CSimpleGUIShape>& value) {
    return value_of(static_cast<const T&>(value));
}
template <class T>
Value show(const T& value) {
    return value_of(value);
}

const auto& own_members(const CSimpleGUIDialog&) { return dialog_members; }
const auto& own_members(const CSimpleGUIShape&) { return shape_members; }

/// Calls visit(member) for those that all items have, then for those of the item's kind.
template <class Item, class Visit>
void each_member(const Item& item, Visit visit) {
    for (const Member<Item>& member : common_members<Item>()) visit(member);
    for (const Member<Item>& member : own_members(item)) visit(member);
}

template <class Item>
Value shown_members(const Item& item) {
    Value shown = Value::object();
    each_member(item, [&](const Member<Item>& member) {
        std::visit([&](auto place) { shown[member.name] = show(item.*place); }, member.place);
    });
    shown["m_type"] = item.m_type;
    return shown;
}

template <class Item>
void store_members(Item& item, Fields& fields) {
    each_member(item, [&](const Member<Item>& member) {
        if (!fields.has(member.name)) return;
        std::visit([&](auto place) { store(fields.get(member.name), fields.where(member.name), item.*place); },
                   member.place);
    });
}

}  // namespace

const std::array<PictureSlot, 3> picture_slots = {{
    {"normal", &CSimpleGUIShape::m_texture},
    {"hover", &CSimpleGUIShape::m_texture_hover},
    {"down", &CSimpleGUIShape::m_texture_down},
}};

Value pictures_of(const CSimpleGUIShape& shape) {
    Value names = Value::object();
    for (const PictureSlot& slot : picture_slots)
        if (const ITexture* texture = (shape.*slot.member).get()) names[slot.name] = value_of(texture->file_name);
    return names;
}

Value members_of(const CSimpleGUIDialog& dialog) { return shown_members(dialog); }

Value members_of(const CSimpleGUIShape& shape) { return shown_members(shape); }

void write_members(CSimpleGUIDialog& dialog, Fields& fields) { store_members(dialog, fields); }

void write_members(CSimpleGUIShape& shape, Fields& fields) { store_members(shape, fields); }

}  // namespace scenario
