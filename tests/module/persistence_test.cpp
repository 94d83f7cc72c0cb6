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

TEST_F(GuiTest, MissingKeysLeaveTheDefaults) {
    MemoryNode nothing;
    auto* reader = engine.make<CSimpleGUIShape>(ITEM_TYPE_SHAPE);
    reader->on_parse(&nothing, load);
    EXPECT_TRUE(reader->m_color == VEC4(1.0f, 1.0f, 1.0f, 0.2f));
    EXPECT_EQ(reader->m_font_org_position, 6);
    EXPECT_EQ(reader->m_is_static_pic, 1);
    EXPECT_EQ(reader->m_is_usable, 1);
    EXPECT_EQ(reader->m_order_num, -1);
    EXPECT_FALSE(reader->m_texture);
    MemoryNode written;
    reader->save_to_node(&written, save);
    EXPECT_EQ(written.find("m_title", MemoryNode::TEXT), nullptr) << "an empty title is not written";
    EXPECT_NE(written.find("m_func_left_up", MemoryNode::ITEM), nullptr) << "an empty script is";
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

TEST_F(GuiTest, WhatIsOutOfTheSceneWritesNothing) {
    CSimpleGUIDialog* parent = dialog({});
    CSimpleGUIShape* child = shape(parent, {});
    const auto lines = [&](IBaseItem* item) {
        MemoryNode node;
        item->save_to_node(&node, save);
        return node.entries.size();
    };
    engine.remove(parent);
    EXPECT_EQ(lines(parent), 0u);
    EXPECT_EQ(lines(child), 0u);
    engine.restore(parent);
    engine.remove(child);
    EXPECT_NE(lines(parent), 0u);
    EXPECT_EQ(lines(child), 0u);
    engine.restore(child);
    EXPECT_NE(lines(child), 0u);
}

TEST_F(GuiTest, SavingNumbersFromTheTopAlsoWhatIsRemoved) {
    CSimpleGUIDialog* below = dialog({});
    CSimpleGUIDialog* gone = dialog({});
    CSimpleGUIDialog* above = dialog({});
    CSimpleGUIShape* low = shape(below, {});
    CSimpleGUIShape* lost = shape(below, {});
    CSimpleGUIShape* high = shape(below, {});
    engine.remove(gone);
    engine.remove(lost);
    engine.client = {0, 0, 1, 1};
    MemoryNode node;
    gui.on_save_project(&node, save);
    EXPECT_EQ(above->m_order_num, 0);
    EXPECT_EQ(gone->m_order_num, 1);
    EXPECT_EQ(below->m_order_num, 2);
    EXPECT_EQ(high->m_order_num, 0);
    EXPECT_EQ(lost->m_order_num, 1);
    EXPECT_EQ(low->m_order_num, 2);
    MemoryNode* child = node.child("SimpleGUIEnvSetting");
    ASSERT_NE(child, nullptr);
    EXPECT_EQ(node.get_children()->size(), 1u);
    const Lines lines = child->written();
    EXPECT_EQ(lines[0], "base");
    EXPECT_EQ(lines[1], "float m_ani_trans_time");
    EXPECT_EQ(lines[2], "int m_gui_logfonts_for_loading0lfHeight");
    EXPECT_EQ(lines[lines.size() - 2], "float m_scene_width");
    EXPECT_EQ(lines.back(), "float m_scene_height");
    EXPECT_EQ(child->value<float>("m_scene_width", PAK_FLOAT), 800.0f) << "the view on record";
}

TEST_F(GuiTest, OpeningTakesTheStoredViewOrThePresentOne) {
    struct Row {
        const char* what;
        float width, height;
        CRect expected;
    };
    const Row rows[] = {{"rounded", 1023.5f, 600.25f, {0, 0, 1024, 600}},
                        {"no width", 0, 600, {0, 0, 800, 600}},
                        {"below 0", 800, -1, {0, 0, 800, 600}},
                        {"larger", 1e30f, 7, {0, 0, INT32_MAX, 7}}};
    for (const Row& row : rows) {
        MemoryNode node;
        float width = row.width;
        float height = row.height;
        float fade = 0.75f;
        pack_node* child = node.add_child("SimpleGUIEnvSetting");
        child->add_property("m_scene_width", PAK_FLOAT, &width);
        child->add_property("m_scene_height", PAK_FLOAT, &height);
        child->add_property("m_ani_trans_time", PAK_FLOAT, &fade);
        gui.on_clean_project();
        gui.on_open_project(&node, load);
        EXPECT_EQ(gui.m_scene_rect, row.expected) << row.what;
        EXPECT_EQ(gui.m_setting->m_ani_trans_time, 0.75f);
        gui.on_project_opened();
        EXPECT_EQ(gui.m_scene_rect, CRect(0, 0, 800, 600)) << "also with no dialog at all";
    }
    gui.on_clean_project();
    EXPECT_EQ(gui.m_setting->m_ani_trans_time, 0.5f);
    MemoryNode nothing;
    gui.on_open_project(&nothing, load);
    gui.on_project_opened();
    EXPECT_EQ(gui.m_setting->m_ani_trans_time, 0.5f);
    EXPECT_EQ(gui.m_setting->m_font_info->font_of_slot(0), engine.default_font);
}
