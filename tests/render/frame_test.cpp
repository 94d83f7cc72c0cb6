#include "fonts/font_info.h"
#include "module/setting.h"
#include "support/allocations.h"
#include "support/gui_test.h"

// What a frame shows is told by scenarios; here stands what only the device and the allocator see.
class FrameTest : public GuiTest {
protected:
    ~FrameTest() override { EXPECT_EQ(engine.device.wrong_constants, 0); }

    CSimpleGUIShape* button(bool normal) {
        CSimpleGUIShape* made = shape(dialog({0, 0, 100, 100}), {1, 2, 31, 22});
        made->m_is_static_pic = 0;
        if (normal) made->m_texture = CMyComPtr<ITexture>(new ScratchPicture(true));
        made->m_texture_hover = CMyComPtr<ITexture>(new ScratchPicture(true));
        made->m_title = L"text";
        made->m_font_shadow = 1;
        return made;
    }
    void edit(CSimpleGUIShape* subject) {
        gui.set_current_edit_dialog(subject->m_parent_dialog);
        engine.selection.push_back(subject->m_actor);
    }
};

TEST_F(FrameTest, KeepsTheDepthOfTheViewportAndTheConstantsOfEveryCall) {
    engine.device.viewport = {0, 0, 800, 600, 0.25f, 0.75f};
    CSimpleGUIShape* subject = button(false);
    shape(subject->m_parent_dialog, {1, 0, 2, 2});
    edit(subject);
    EXPECT_EQ(engine.frame().size(), 6 + 5 + 6u) << "twice the dialog, and its mark";
    gui.prepare_run();
    EXPECT_EQ(engine.frame().size(), 8u) << "three layers of the button";
    EXPECT_EQ(engine.device.viewport.min_z, 0.25f);
    EXPECT_EQ(engine.device.viewport.max_z, 0.75f);
}

TEST_F(FrameTest, WhatFailsInOneDialogEndsThere) {
    engine.device.viewport = {0, 0, 800, 600, 0, 1};
    for (int number = 0; number < 2; ++number) shape(dialog({10, 20, 100, 100}), {1, 2, 31, 22});
    const std::size_t whole = engine.frame().size();
    engine.device.failures = 1;
    EXPECT_EQ(engine.frame().size(), whole - 1);
    EXPECT_EQ(engine.device.viewport.x, 0);
    EXPECT_EQ(engine.device.viewport.width, 800);
}

TEST_F(FrameTest, WithoutMemoryForASettingThereIsAPictureAllTheSame) {
    button(true);
    gui.prepare_run();
    const std::size_t whole = engine.frame().size();
    gui.m_setting = nullptr;
    {
        const FailingAllocation failure(0);
        gui.init_3d_environment();
        ASSERT_TRUE(failure.was_met());
    }
    ASSERT_EQ(gui.m_setting, nullptr);
    EXPECT_EQ(engine.frame().size(), whole);
}

TEST_F(FrameTest, TextsTakeTheFontOfTheirSlot) {
    CSimpleGUIShape* subject = shape(dialog({0, 0, 100, 100}), {1, 2, 31, 22});
    subject->m_title = L"text";
    const CMyComPtr<IBaseFont> second(new IBaseFont(&engine.device));
    gui.m_setting->m_font_info->m_gui_fonts[1] = second.get();
    gui.m_setting->m_font_info->m_gui_fonts[2] = nullptr;
    for (int slot : {1, 2, 8, -1}) {
        subject->m_font_type = slot;
        EXPECT_EQ(engine.frame()[2].font, slot == 1 ? second.get() : engine.default_font) << slot;
    }
    engine.default_font = nullptr;
    EXPECT_EQ(engine.frame().size(), 3u) << "an engine without fonts";
}

// Scripts and files can store any rectangle; the undefined behaviour sanitizer watches.
TEST_F(FrameTest, ExtremeRectanglesAreDrawnWithoutHarm) {
    CSimpleGUIShape* subject = button(false);
    edit(subject);
    engine.device.recording = false;
    for (const CRect& rect : {CRect(INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN),
                              CRect(INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX), CRect(5, 5, 1, 1)}) {
        subject->m_rect = rect;
        subject->m_parent_dialog->m_rect = {rect.right, rect.bottom, rect.left, rect.top};
        gui.m_shape_target = {};
        subject->m_font_org_position = FONT_RIGHT_BOTTOM;
        engine.frame();
    }
    EXPECT_EQ(gui.m_shape_target->width, 0u) << "no picture of a size below 0";
}

TEST_F(FrameTest, ASteadyFrameAllocatesNothing) {
    CSimpleGUIShape* subject = button(true);
    for (int more = 0; more < 50; ++more) shape(subject->m_parent_dialog, {1, 1, 9, 9})->m_title = L"more";
    gui.prepare_run();
    subject->set_texture_mode(2);
    engine.frame();
    engine.device.recording = false;
    const render_context context;
    for (int round = 1; round < 4; ++round) {
        engine.set_seconds(round * 0.1);
        const std::size_t before = allocations();
        gui.render_in_view_2d(context);
        EXPECT_EQ(allocations(), before);
    }
}
