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

TEST_F(GuiTest, HearsOfItsOwnClassesAlone) {
    CSimpleGUIDialog* subject = dialog({});
    const CMyComPtr<IBaseItem> stranger(new IBaseItem);
    stranger->m_type = ITEM_TYPE_DIALOG;
    IActor* strange = engine.scene.create_actor(stranger.get(), nullptr, 1);
    IActor* empty = engine.scene.create_actor(nullptr, nullptr, 1);
    gui.process_message(20, 1, 2, 3, 4, 5, 6);
    engine.tell(MSG_ACTORS_REMOVED, {nullptr, strange, empty, subject->m_actor});
    EXPECT_FALSE(subject->m_in_scene);
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
