#include "animation/anim_node.h"
#include "fonts/font_info.h"
#include "module/module_state.h"
#include "module/setting.h"
#include "support/gui_test.h"

TEST_F(GuiTest, RegistersItsVocabularyInOrder) {
    const Registry& known = registry();
    EXPECT_EQ(known.order,
              (std::vector<std::string>{"item", "item", "node", "track", "track", "track", "track", "track"}));
    EXPECT_EQ(known.items[0].type, 83783u);
    EXPECT_EQ(known.items[0].name, L"GUI窗口");
    EXPECT_EQ(known.items[1].type, 83782u);
    EXPECT_EQ(known.items[1].name, L"GUI形状");
    EXPECT_EQ(known.items[0].flags, 0x4003u);
    EXPECT_EQ(known.items[1].flags, 0x4003u);
    EXPECT_EQ(known.nodes[0].type, 1001u);
    EXPECT_EQ(known.nodes[0].name, L"GUI控件节点");
    EXPECT_EQ(known.nodes[0].tracks, (std::vector<unsigned>{1002, 1003, 1004, 1005, 1006}));
    EXPECT_EQ(known.nodes[0].items, (std::set<unsigned long>{83782, 83783}));
    const wchar_t* names[] = {L"GUI位置轨道", L"GUI尺寸轨道", L"GUI可见性轨道", L"GUI对齐方式轨道", L"GUI控件颜色轨道"};
    for (unsigned at = 0; at < 5; ++at) {
        EXPECT_EQ(known.tracks[at].type, 1002 + at);
        EXPECT_EQ(known.tracks[at].name, names[at]);
        EXPECT_EQ(known.tracks[at].flags, 0u);
    }
    EXPECT_EQ(gui.get_name(), L"CSimpleGUIManager");
    EXPECT_TRUE(gui.get_id() == CGuid(L"283B689B-6775-0F82-3171-70E93AFF15F6"));
    EXPECT_EQ(CSimpleGUIManager::m_instance, &gui);
    ASSERT_EQ(engine.scene.property_items.size(), 1u);
    EXPECT_EQ(engine.scene.property_items[0].first.get(), gui.m_setting);
    EXPECT_EQ(engine.scene.property_items[0].second, L"GUI界面环境设置");
    EXPECT_EQ(gui.m_setting->get_type(), 14u);
}

TEST_F(GuiTest, CreatorsMakeWhatTheirNumberSaysAndNothingElse) {
    EXPECT_EQ(engine.make<CSimpleGUIDialog>(83783)->get_type(), 83783u);
    EXPECT_EQ(engine.make<CSimpleGUIShape>(83782)->get_type(), 83782u);
    EXPECT_EQ(registry().nodes[0].creator(&engine, 1002, CGuid()), nullptr);
    EXPECT_EQ(registry().tracks[0].creator(1001), nullptr);
    EXPECT_EQ(registry().tracks[0].creator(1007), nullptr);
    const CGuid id(L"00000000-0000-0000-0000-000000000001");
    const CMyComPtr<CAnimNodeBase> node(AnimSystemLibrary::create_anim_node_by_type(&engine, 1001, id));
    EXPECT_TRUE(node->get_internal_item_id() == id);
    EXPECT_EQ(node->get_tracklist().size(), 5u);
    EXPECT_EQ(gui.m_anim_nodes.size(), 1u);
    gui.on_clean_project();
    EXPECT_TRUE(gui.m_anim_nodes.empty());
}

TEST_F(GuiTest, NewElementsHaveDefaultNamesAndTheirPlacesInTheLists) {
    CSimpleGUIDialog* one = gui.create_dialog();
    CSimpleGUIDialog* two = gui.create_dialog();
    EXPECT_EQ(one->m_actor->get_name(), L"窗口0");
    EXPECT_EQ(two->m_actor->get_name(), L"窗口1");
    EXPECT_EQ(gui.m_dialogs.front(), two);
    EXPECT_EQ(one->m_order_num, -1);
    CSimpleGUIShape* child = gui.create_shape(one);
    CSimpleGUIShape* second = gui.create_shape(one);
    EXPECT_EQ(child->m_actor->get_name(), L"图片按钮0");
    EXPECT_EQ(child->m_actor->get_parent(), one->m_actor);
    EXPECT_EQ(one->m_shapes.back(), second);
    EXPECT_EQ(gui.m_shapes.back(), second);
    engine.destroy(second);
    EXPECT_EQ(gui.create_shape(one)->m_actor->get_name(), L"图片按钮2") << "no number comes back";
    gui.on_clean_project();
    EXPECT_EQ(gui.create_dialog()->m_actor->get_name(), L"窗口0");
    EXPECT_EQ(gui.create_shape(one)->m_actor->get_name(), L"图片按钮0");
}

TEST_F(GuiTest, AShapeWithoutADialogGoesToTheOneUnderEditElseToTheRoot) {
    EXPECT_EQ(gui.create_shape(nullptr), nullptr);
    EXPECT_TRUE(gui.m_shapes.empty());
    gui.create_root_dialog();
    CSimpleGUIDialog* root = gui.m_root_dialog;
    EXPECT_EQ(root->m_rect, CRect(0, 0, 800, 600));
    EXPECT_EQ(root->m_bScaleMode, 1);
    EXPECT_FLOAT_EQ(root->m_bottom_scaleMode, 1.0f);
    EXPECT_EQ(gui.create_shape(nullptr)->m_parent_dialog, root);
    EXPECT_EQ(gui.get_editing_dialog(), root);
    CSimpleGUIDialog* other = gui.create_dialog();
    gui.set_current_edit_dialog(other);
    EXPECT_EQ(gui.create_shape(nullptr)->m_parent_dialog, other);
    EXPECT_EQ(gui.create_shape(root)->m_parent_dialog, root);
    EXPECT_EQ(gui.get_editing_dialog(), other);
}

TEST_F(GuiTest, LookUpsGiveTheFirstExactMatch) {
    EXPECT_EQ(gui.get_dialog_by_name(L"窗口0"), nullptr);
    EXPECT_EQ(gui.get_shape_by_guid(CGuid()), nullptr);
    CSimpleGUIDialog* one = dialog({});
    CSimpleGUIDialog* two = dialog({});
    CSimpleGUIShape* first = shape(one, {});
    CSimpleGUIShape* second = shape(two, {});
    for (IBaseItem* item : std::vector<IBaseItem*>{one, two, first, second}) item->m_actor->set_name(L"Menu", true);
    EXPECT_EQ(gui.get_dialog_by_name(L"Menu"), two);
    EXPECT_EQ(gui.get_shape_by_name(L"Menu"), first);
    EXPECT_EQ(gui.get_shape_by_name(L"menu"), nullptr);
    EXPECT_EQ(gui.get_shape_by_name(L"Men"), nullptr);
    engine.remove(second);
    EXPECT_EQ(gui.get_shape_by_guid(second->m_actor->get_id()), second);
    EXPECT_EQ(gui.get_dialog_by_guid(second->m_actor->get_id()), nullptr);
    EXPECT_EQ(gui.get_dialog_by_guid(one->m_actor->get_id()), one);
}

TEST_F(GuiTest, HearsOfRemovalAndReturnOnly) {
    CSimpleGUIDialog* subject = dialog({});
    CSimpleGUIShape* child = shape(subject, {});
    const CMyComPtr<IBaseItem> stranger(new IBaseItem);
    stranger->m_type = ITEM_TYPE_DIALOG;
    IActor* strange = engine.scene.create_actor(stranger.get(), nullptr, 1);
    IActor* empty = engine.scene.create_actor(nullptr, nullptr, 1);
    gui.set_current_edit_dialog(subject);
    gui.process_message(20, 1, 2, 3, 4, 5, 6);
    gui.process_message(35, 1, 2, 3, 4, 5, 6);
    engine.tell(MSG_ACTORS_REMOVED, {nullptr, strange, empty, subject->m_actor});
    EXPECT_FALSE(subject->m_in_scene);
    EXPECT_TRUE(child->m_in_scene) << "only what the list names";
    EXPECT_EQ(gui.get_editing_dialog(), nullptr);
    engine.tell(MSG_ACTORS_RESTORED, {strange, empty, nullptr, subject->m_actor});
    EXPECT_TRUE(subject->m_in_scene);
    EXPECT_EQ(gui.get_editing_dialog(), nullptr);
    engine.remove(child);
    EXPECT_FALSE(child->m_in_scene);
}

TEST_F(GuiTest, ACleanProjectBeginsAnew) {
    CSimpleGUIDialog* subject = dialog({});
    gui.set_current_edit_dialog(subject);
    engine.frame();
    gui.prepare_run();
    gui.m_setting->m_ani_trans_time = 9;
    CGlobalFontInfo* fonts = gui.m_setting->m_font_info;
    fonts->m_show_font_sample = true;
    engine.client = {50, 60, 250, 160};
    gui.m_scene_rect = {0, 0, 9, 9};
    gui.on_clean_project();
    EXPECT_EQ(gui.m_gui_hidden, 1);
    EXPECT_EQ(gui.m_running, 0);
    EXPECT_EQ(gui.m_view_rect, CRect(0, 0, 200, 100));
    EXPECT_EQ(gui.m_scene_rect, CRect(0, 0, 200, 100));
    EXPECT_EQ(gui.m_setting->m_ani_trans_time, 0.5f);
    EXPECT_FALSE(gui.m_setting->m_font_info->m_show_font_sample);
    EXPECT_EQ(gui.m_dialogs.size(), 1u);
    EXPECT_EQ(gui.get_editing_dialog(), subject);
    EXPECT_NE(s_run_tool, nullptr) << "the tool lives until the end of the run";
    gui.after_run();
    EXPECT_EQ(s_run_tool, nullptr);
    EXPECT_TRUE(engine.input.chain.empty());
}

TEST_F(GuiTest, ARunHasOneToolInTheChain) {
    EXPECT_TRUE(engine.input.chain.empty());
    gui.after_run();
    gui.prepare_run();
    ASSERT_EQ(engine.input.chain.size(), 1u);
    EXPECT_EQ(engine.input.chain[0].first, 900.0f);
    EXPECT_EQ(gui.m_running, 1);
    gui.prepare_run();
    EXPECT_EQ(engine.input.chain.size(), 1u) << "also when begun twice";
    gui.after_run();
    EXPECT_TRUE(engine.input.chain.empty());
    EXPECT_EQ(gui.m_running, 0);
    EXPECT_EQ(engine.updates_asked, 4);
}
