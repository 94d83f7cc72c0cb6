#include "support/gui_test.h"

TEST_F(GuiTest, DialogsFollowTheViewByTheirDescription) {
    struct Row {
        int align;
        int scale;
        CRect expected;
    };
    const Row rows[] = {{8, 0, {400, 350, 600, 450}}, {0, 0, {300, 250, 500, 350}}, {4, 0, {500, 450, 700, 550}},
                        {2, 0, {500, 250, 700, 350}}, {7, 0, {300, 350, 500, 450}}, {5, 0, {400, 450, 600, 550}},
                        {0, 1, {375, 333, 625, 467}}, {12, 0, {300, 250, 500, 350}}};
    for (const Row& row : rows) {
        engine.resize(800, 600);
        CSimpleGUIDialog* subject = dialog({300, 250, 500, 350});
        subject->set_align_type(row.align);
        subject->set_scale_mode(row.scale);
        EXPECT_EQ(subject->m_rect, CRect(300, 250, 500, 350)) << "describing moves nothing";
        engine.resize(1000, 800);
        EXPECT_EQ(subject->m_rect, row.expected) << row.align << " " << row.scale;
        EXPECT_EQ(subject->m_last_rect, row.expected);
    }
}

TEST_F(GuiTest, ShapesFollowTheirDialog) {
    CSimpleGUIDialog* parent = dialog({100, 50, 300, 150});
    CSimpleGUIShape* corner = shape(parent, {110, 60, 130, 80});
    CSimpleGUIShape* far = shape(parent, {290, 140, 299, 149});
    far->set_align_type(4);
    CSimpleGUIShape* grows = shape(parent, {150, 75, 250, 125});
    grows->set_scale_mode(1);
    EXPECT_EQ(corner->m_offsetx, 10);
    EXPECT_EQ(far->m_offsetx, -10);
    parent->set_rect({105, 55, 505, 255}, false);
    EXPECT_EQ(corner->m_rect, CRect(115, 65, 135, 85));
    EXPECT_EQ(far->m_rect, CRect(495, 245, 504, 254));
    EXPECT_EQ(grows->m_rect, CRect(205, 105, 405, 205));
}

TEST_F(GuiTest, OnlyTheDescriptionInForceIsKeptUp) {
    CSimpleGUIDialog* subject = dialog({80, 60, 160, 120});
    subject->set_scale_mode(1);
    EXPECT_FLOAT_EQ(subject->m_right_scaleMode, 0.2f);
    subject->set_align_type(4);
    subject->set_rect({400, 60, 480, 120}, true);
    EXPECT_EQ(subject->m_offsetx, 80) << "not in force";
    EXPECT_FLOAT_EQ(subject->m_left_scaleMode, 0.5f);
    EXPECT_EQ(subject->m_last_rect, CRect(80, 60, 160, 120)) << "left behind for the keys";
    subject->set_scale_mode(0);
    EXPECT_EQ(subject->m_offsetx, -400);
    EXPECT_FLOAT_EQ(subject->m_left_scaleMode, 0.5f);
}

TEST_F(GuiTest, ResizingTenThousandTimesDoesNotDrift) {
    CSimpleGUIDialog* scaled = dialog({113, 57, 619, 311});
    scaled->set_scale_mode(1);
    CSimpleGUIDialog* centred = dialog({113, 57, 619, 311});
    centred->set_align_type(8);
    CSimpleGUIShape* child = shape(scaled, {200, 100, 333, 177});
    child->set_scale_mode(1);
    engine.resize(801, 601);
    const CRect first[] = {scaled->m_rect, centred->m_rect, child->m_rect};
    for (int round = 0; round < 10000; ++round) engine.resize(round * 7919 % 2500, round * 104729 % 1500);
    engine.resize(801, 601);
    EXPECT_EQ(scaled->m_rect, first[0]);
    EXPECT_EQ(centred->m_rect, first[1]);
    EXPECT_EQ(child->m_rect, first[2]);
    EXPECT_EQ(child->m_rect.Width() > 100, true) << "came back from views without a size";
}

TEST_F(GuiTest, ThePlaceOfTheViewInItsWindowDoesNotCount) {
    engine.client = {1000, 2000, 1800, 2600};
    CSimpleGUIDialog* subject = dialog({700, 500, 800, 600});
    subject->set_align_type(4);
    EXPECT_EQ(subject->m_offsetx, -100);
    gui.on_size_changed(-5, 99999);
    EXPECT_EQ(subject->m_rect, CRect(700, 500, 800, 600));
    EXPECT_EQ(gui.m_view_rect, CRect(0, 0, 800, 600));
}

TEST_F(GuiTest, RemovedElementsStillFollowTheView) {
    CSimpleGUIDialog* subject = dialog({300, 250, 500, 350});
    subject->set_align_type(8);
    engine.remove(subject);
    engine.resize(1000, 800);
    EXPECT_EQ(subject->m_rect, CRect(400, 350, 600, 450));
    EXPECT_EQ(gui.m_scene_rect, CRect(0, 0, 800, 600));
    EXPECT_EQ(gui.m_view_rect, CRect(0, 0, 1000, 800));
}

TEST_F(GuiTest, AShapeWithoutADialogStoresItsRectangleAlone) {
    auto* orphan = engine.make<CSimpleGUIShape>(ITEM_TYPE_SHAPE);
    orphan->m_font_pos_x = 77;
    orphan->set_rect({1, 2, 3, 4});
    orphan->set_align_type(4);
    orphan->update_rect();
    orphan->update_fontpos();
    EXPECT_EQ(orphan->m_rect, CRect(1, 2, 3, 4));
    EXPECT_EQ(orphan->m_offsetx, 0);
    EXPECT_EQ(orphan->m_font_pos_x, 77);
    const float made = orphan->m_mode_time;
    engine.set_seconds(5);
    orphan->set_texture_mode(2);
    EXPECT_EQ(orphan->m_mode_time, made);
}

TEST_F(GuiTest, AShapeMovesOnTopOfAnotherDialogAndStaysInPlace) {
    CSimpleGUIDialog* from = dialog({0, 0, 100, 100});
    CSimpleGUIDialog* to = dialog({200, 100, 400, 300});
    CSimpleGUIShape* other = shape(to, {});
    CSimpleGUIShape* subject = shape(from, {10, 20, 30, 40});
    subject->change_parent_dialog(from);
    EXPECT_TRUE(engine.messages_sent.empty());
    subject->change_parent_dialog(to);
    EXPECT_TRUE(from->m_shapes.empty());
    ASSERT_EQ(to->m_shapes.size(), 2u);
    EXPECT_EQ(to->m_shapes.front(), other);
    EXPECT_EQ(subject->m_actor->get_parent(), to->m_actor);
    EXPECT_EQ(subject->m_rect, CRect(10, 20, 30, 40));
    EXPECT_EQ(subject->m_offsetx, -190);
    EXPECT_EQ(subject->m_offsety, -80);
    EXPECT_EQ(engine.messages_sent, std::vector<unsigned long>{MSG_ACTOR_TREE_CHANGED});
}

TEST_F(GuiTest, AChangeOfModeStartsFromTheWeightsOfTheMoment) {
    CSimpleGUIShape* subject = shape(dialog({}), {});
    subject->m_fade_now[0] = 9;
    subject->m_fade_now[1] = 0.25f;
    subject->m_fade_now[3] = 0.5f;
    engine.set_seconds(2.5);
    subject->set_texture_mode(1);
    EXPECT_EQ(subject->m_mode_time, 0.0f) << "the present mode starts nothing";
    subject->set_texture_mode(3);
    EXPECT_EQ(subject->m_mode_time, 2.5f);
    EXPECT_EQ(subject->m_fade_start[0], 0.0f);
    EXPECT_EQ(subject->m_fade_start[1], 0.25f);
    EXPECT_EQ(subject->m_fade_start[3], 0.5f);
}

TEST_F(GuiTest, ElementsLeaveEverythingThatNamesThem) {
    CSimpleGUIDialog* first = dialog({});
    CSimpleGUIShape* child = shape(first, {});
    gui.set_current_edit_dialog(first);
    gui.m_root_dialog = first;
    engine.scene.delete_alone(first->m_actor);
    EXPECT_EQ(child->m_parent_dialog, nullptr);
    EXPECT_EQ(gui.get_editing_dialog(), nullptr);
    EXPECT_EQ(gui.m_root_dialog, nullptr);
    EXPECT_TRUE(gui.m_dialogs.empty());
    CSimpleGUIDialog* second = dialog({});
    engine.destroy(shape(second, {}));
    EXPECT_TRUE(second->m_shapes.empty());
    EXPECT_EQ(gui.m_shapes.size(), 1u);
}
