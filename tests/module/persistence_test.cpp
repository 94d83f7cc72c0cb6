#include "fonts/font_info.h"
#include "module/setting.h"
#include "support/gui_test.h"

namespace {

using Lines = std::vector<std::string>;

// The entries in file order.
constexpr const char* dialog_keys =
    "base, int m_iAlignType, int m_offsetx, int m_offsety, bool m_bScaleMode, "
    "float m_left_scaleMode, float m_right_scaleMode, float m_top_scaleMode, "
    "float m_bottom_scaleMode, rect m_rect, int m_order_num";
constexpr const char* shape_keys =
    "base, rect m_rect, vec4 m_color, text m_title, int m_iAlignType, int m_offsetx, int m_offsety, "
    "bool m_bScaleMode, float m_left_scaleMode, float m_right_scaleMode, float m_top_scaleMode, "
    "float m_bottom_scaleMode, bool m_bk_image, int m_font_pos_x, int m_font_pos_y, "
    "int m_font_org_position, vec4 m_font_color, bool m_font_shadow, bool m_is_static_pic, "
    "int m_font_type, int m_order_num, bool m_is_usable, item m_texture, item m_texture_hover, "
    "item m_texture_down, item m_func_left_down, item m_func_left_up, item m_func_right_down, "
    "item m_func_right_up, item m_func_middle_down, item m_func_middle_up, item m_func_mouse_in, "
    "item m_func_mouse_out";

std::string joined(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines) text += (text.empty() ? "" : ", ") + line;
    return text;
}

// Gives each number of a node a value of its own, so that two fields that changed places are seen.
void number_properties(MemoryNode& node) {
    std::int32_t next = 100;
    for (MemoryNode::Entry& entry : node.entries) {
        for (std::size_t at = 0; at + 4 <= entry.bytes.size(); at += 4, ++next) {
            const float fraction = static_cast<float>(next);
            const bool real = entry.kind == PAK_FLOAT || entry.kind == PAK_VEC4;
            entry.bytes.replace(at, 4,
                                reinterpret_cast<const char*>(real ? static_cast<const void*>(&fraction) : &next), 4);
        }
    }
}

bool same_entries(const MemoryNode& a, const MemoryNode& b) {
    return std::equal(a.entries.begin(), a.entries.end(), b.entries.begin(), b.entries.end(),
                      [](const auto& x, const auto& y) {
                          return x.key == y.key && x.kind == y.kind && x.bytes == y.bytes && x.text == y.text &&
                                 x.item.get() == y.item.get();
                      });
}

// Every item under a key of its own, so that none is read into another's place.
void fill_sub_items(MemoryNode& node) {
    int count = 0;
    for (MemoryNode::Entry& entry : node.entries) {
        if (entry.kind != MemoryNode::ITEM) continue;
        entry.item =
            ++count <= 3 ? CMyComPtr<IBaseItem>(new ScratchPicture(true)) : CMyComPtr<IBaseItem>(script([] {}));
    }
}

}  // namespace

TEST_F(GuiTest, ADialogKeepsEveryFieldInOrder) {
    MemoryNode first;
    MemoryNode second;
    dialog({})->save_to_node(&first, save);
    EXPECT_EQ(joined(first.written()), dialog_keys);
    number_properties(first);
    auto* reader = engine.make<CSimpleGUIDialog>(ITEM_TYPE_DIALOG);
    reader->on_parse(&first, load);
    EXPECT_EQ(joined(first.asked), dialog_keys);
    EXPECT_EQ(reader->m_offsetx, 101);
    EXPECT_EQ(reader->m_right_scaleMode, 105.0f);
    EXPECT_EQ(reader->m_rect, CRect(108, 109, 110, 111));
    EXPECT_EQ(reader->m_order_num, 112);
    reader->save_to_node(&second, save);
    EXPECT_TRUE(same_entries(first, second));
}

TEST_F(GuiTest, AShapeKeepsEveryFieldInOrder) {
    MemoryNode first;
    MemoryNode second;
    CSimpleGUIShape* writer = shape(dialog({}), {});
    writer->m_title = L"标题";
    writer->save_to_node(&first, save);
    EXPECT_EQ(joined(first.written()), shape_keys);
    number_properties(first);
    fill_sub_items(first);
    auto* reader = engine.make<CSimpleGUIShape>(ITEM_TYPE_SHAPE);
    reader->on_parse(&first, load);
    EXPECT_EQ(joined(first.asked), shape_keys);
    EXPECT_EQ(reader->m_is_usable, 128);
    EXPECT_EQ(reader->m_title, L"标题");
    EXPECT_EQ(reader->m_texture_hover.get(), first.find("m_texture_hover", MemoryNode::ITEM)->item.get());
    EXPECT_EQ(reader->m_func_mouse_in.get(), first.find("m_func_mouse_in", MemoryNode::ITEM)->item.get());
    EXPECT_EQ(reader->m_fade_now[1], 0.0f);
    EXPECT_EQ(reader->m_texture_mode, 1);
    reader->save_to_node(&second, save);
    EXPECT_TRUE(same_entries(first, second));
}

TEST_F(GuiTest, ASubItemOfAnotherClassIsNotTaken) {
    MemoryNode node;
    CMyComPtr<IBaseItem> picture(new ScratchPicture(true));
    save_item_to_node("m_func_left_down", &node, picture.get(), save);
    save_item_to_node("m_texture", &node, script([] {}).get(), save);
    auto* reader = engine.make<CSimpleGUIShape>(ITEM_TYPE_SHAPE);
    reader->on_parse(&node, load);
    EXPECT_FALSE(reader->m_func_left_down);
    EXPECT_FALSE(reader->m_texture);
}
