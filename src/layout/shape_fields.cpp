#include "layout/shape_fields.h"

#include "layout/element.h"

namespace {

using S = CSimpleGUIShape;

// The persisted fields of a shape, in file order. The title stands between the two groups.
constexpr PersistedField<S> fields_ahead_of_title[] = {
    {"m_rect", PAK_RECT, address_of<&S::m_rect, S>},
    {"m_color", PAK_VEC4, address_of<&S::m_color, S>},
};
constexpr PersistedField<S> fields_behind_title[] = {
    {"m_iAlignType", PAK_INT, address_of<&S::m_iAlignType, S>},
    {"m_offsetx", PAK_INT, address_of<&S::m_offsetx, S>},
    {"m_offsety", PAK_INT, address_of<&S::m_offsety, S>},
    {"m_bScaleMode", PAK_BOOL, address_of<&S::m_bScaleMode, S>},
    {"m_left_scaleMode", PAK_FLOAT, address_of<&S::m_left_scaleMode, S>},
    {"m_right_scaleMode", PAK_FLOAT, address_of<&S::m_right_scaleMode, S>},
    {"m_top_scaleMode", PAK_FLOAT, address_of<&S::m_top_scaleMode, S>},
    {"m_bottom_scaleMode", PAK_FLOAT, address_of<&S::m_bottom_scaleMode, S>},
    {"m_bk_image", PAK_BOOL, address_of<&S::m_bk_image, S>},
    {"m_font_pos_x", PAK_INT, address_of<&S::m_font_pos_x, S>},
    {"m_font_pos_y", PAK_INT, address_of<&S::m_font_pos_y, S>},
    {"m_font_org_position", PAK_INT, address_of<&S::m_font_org_position, S>},
    {"m_font_color", PAK_VEC4, address_of<&S::m_font_color, S>},
    {"m_font_shadow", PAK_BOOL, address_of<&S::m_font_shadow, S>},
    {"m_is_static_pic", PAK_BOOL, address_of<&S::m_is_static_pic, S>},
    {"m_font_type", PAK_INT, address_of<&S::m_font_type, S>},
    {"m_order_num", PAK_INT, address_of<&S::m_order_num, S>},
    {"m_is_usable", PAK_BOOL, address_of<&S::m_is_usable, S>},
};
constexpr const char* title_key = "m_title";

template <class Item>
struct SubItem {
    const char* key;
    CMyComPtr<Item> S::*member;
};

constexpr SubItem<ITexture> pictures[] = {
    {"m_texture", &S::m_texture},
    {"m_texture_hover", &S::m_texture_hover},
    {"m_texture_down", &S::m_texture_down},
};
constexpr SubItem<IScriptFunction> scripts[] = {
    {"m_func_left_down", &S::m_func_left_down},     {"m_func_left_up", &S::m_func_left_up},
    {"m_func_right_down", &S::m_func_right_down},   {"m_func_right_up", &S::m_func_right_up},
    {"m_func_middle_down", &S::m_func_middle_down}, {"m_func_middle_up", &S::m_func_middle_up},
    {"m_func_mouse_in", &S::m_func_mouse_in},       {"m_func_mouse_out", &S::m_func_mouse_out},
};

template <class Item, std::size_t Count>
void save_sub_items(S& shape, pack_node* node, const save_operation& operation, const SubItem<Item> (&items)[Count]) {
    for (const auto& item : items) save_item_to_node(item.key, node, (shape.*item.member).get(), operation);
}

template <class Item, std::size_t Count>
void read_sub_items(S& shape, pack_node* node, const load_operation& operation, const SubItem<Item> (&items)[Count]) {
    for (const auto& item : items) {
        const CMyComPtr<IBaseItem> stored(load_item_from_node(item.key, node, operation));
        // A file can hold any item under the key; one of another class would not answer the calls of this one.
        if (Item* fitting = dynamic_cast<Item*>(stored.get())) shape.*item.member = CMyComPtr<Item>(fitting);
    }
}

}  // namespace

void save_shape_fields(CSimpleGUIShape& shape, pack_node* node, const save_operation& operation) {
    save_fields(shape, node, fields_ahead_of_title);
    if (!shape.m_title.empty()) node->add_string_property(title_key, shape.m_title);
    save_fields(shape, node, fields_behind_title);
    save_sub_items(shape, node, operation, pictures);
    save_sub_items(shape, node, operation, scripts);
}

void read_shape_fields(CSimpleGUIShape& shape, pack_node* node, const load_operation& operation) {
    read_fields(shape, node, fields_ahead_of_title);
    node->get_string_property(title_key, shape.m_title);
    read_fields(shape, node, fields_behind_title);
    read_sub_items(shape, node, operation, pictures);
    read_sub_items(shape, node, operation, scripts);
}
