#include <cmath>

#include "fonts/font_info.h"
#include "module/setting.h"
#include "render/mark_color.h"
#include "support/allocations.h"
#include "support/gui_test.h"

namespace {

using Kinds = std::vector<DrawCall::Kind>;
Kinds kinds(const std::vector<DrawCall>& calls) {
    Kinds all;
    for (const DrawCall& call : calls) all.push_back(call.kind);
    return all;
}

}  // namespace

class FrameTest : public GuiTest {
protected:
    ~FrameTest() override { EXPECT_EQ(engine.device.wrong_constants, 0); }

    /// The rectangles filled or textured, by their left edge.
    std::vector<int> lefts(const std::vector<DrawCall>& calls) {
        std::vector<int> all;
        for (const DrawCall& call : calls) {
            if (call.kind == DrawCall::SOLID || call.kind == DrawCall::TEXTURE) all.push_back(call.rect.left);
        }
        return all;
    }
    CSimpleGUIShape* button(bool normal, bool hover, bool down) {
        CSimpleGUIShape* made = shape(dialog({0, 0, 100, 100}), {1, 2, 31, 22});
        made->m_is_static_pic = 0;
        made->m_color = {0.1f, 0.2f, 0.3f, 1.0f};
        if (normal) made->m_texture = picture();
        if (hover) made->m_texture_hover = picture();
        if (down) made->m_texture_down = picture();
        return made;
    }
    static CMyComPtr<ITexture> picture(bool has_device = true) {
        return CMyComPtr<ITexture>(new ScratchPicture(has_device));
    }
    /// The one shape's calls, without the viewports around them.
    std::vector<DrawCall> shape_calls() {
        std::vector<DrawCall> calls = engine.frame();
        EXPECT_GE(calls.size(), 2u);
        return {calls.begin() + 1, calls.end() - 1};
    }
};

TEST_F(FrameTest, DialogsAreDrawnFromTheBackAndTheirBackgroundsFirst) {
    engine.device.viewport = {0, 0, 800, 600, 0.25f, 0.75f};
    CSimpleGUIDialog* below = dialog({-50, 20, 350, 120});
    CSimpleGUIDialog* above = dialog({0, 0, 9, 9});
    shape(below, {1, 0, 2, 2});
    shape(below, {2, 0, 3, 2})->m_bk_image = 1;
    shape(below, {3, 0, 4, 2});
    shape(below, {4, 0, 5, 2})->m_bk_image = 1;
    shape(above, {5, 0, 6, 2});
    const std::vector<DrawCall> calls = engine.frame();
    EXPECT_EQ(lefts(calls), (std::vector<int>{2, 4, 1, 3, 5}));
    EXPECT_EQ(kinds(calls),
              (Kinds{DrawCall::VIEWPORT, DrawCall::SOLID, DrawCall::SOLID, DrawCall::SOLID, DrawCall::SOLID,
                     DrawCall::VIEWPORT, DrawCall::VIEWPORT, DrawCall::SOLID, DrawCall::VIEWPORT}));
    EXPECT_EQ(calls[0].rect, CRect(-50, 20, 350, 120));
    EXPECT_EQ(calls[5].rect, CRect(0, 0, 800, 600));
    EXPECT_EQ(engine.device.viewport.min_z, 0.25f);
    EXPECT_EQ(engine.device.viewport.max_z, 0.75f);
}

TEST_F(FrameTest, WhatIsHiddenOrRemovedIsNotDrawn) {
    CSimpleGUIDialog* subject = dialog({0, 0, 100, 100});
    CSimpleGUIShape* child = shape(subject, {1, 0, 2, 2});
    shape(subject, {2, 0, 3, 2});
    child->m_actor->set_visible(false);
    EXPECT_EQ(lefts(engine.frame()), (std::vector<int>{2}));
    child->m_actor->set_visible(true);
    engine.remove(child);
    EXPECT_EQ(lefts(engine.frame()), (std::vector<int>{2}));
    engine.restore(child);
    subject->m_actor->set_visible(false);
    EXPECT_TRUE(engine.frame().empty());
    subject->m_actor->set_visible(true);
    engine.remove(subject);
    EXPECT_TRUE(engine.frame().empty());
    engine.restore(subject);
    EXPECT_EQ(lefts(engine.frame()), (std::vector<int>{1, 2}));
}

TEST_F(FrameTest, HidingHoldsOnlyInTheOneState) {
    shape(dialog({0, 0, 9, 9}), {1, 0, 2, 2});
    engine.m_system_state = SYSTEM_STATE_FOUR;
    EXPECT_TRUE(engine.frame().empty());
    EXPECT_NE(gui.m_gui_hidden, 0);
    engine.m_system_state = 3;
    EXPECT_FALSE(engine.frame().empty());
    EXPECT_EQ(gui.m_gui_hidden, 0);
    engine.m_system_state = SYSTEM_STATE_FOUR;
    EXPECT_FALSE(engine.frame().empty());
}

TEST_F(FrameTest, TheDialogUnderEditStandsClearAboveTheVeil) {
    CSimpleGUIDialog* edited = dialog({10, 20, 110, 220});
    CSimpleGUIDialog* other = dialog({0, 0, 50, 50});
    shape(edited, {11, 0, 12, 2});
    shape(other, {5, 0, 6, 2});
    gui.m_dim_color = {1.0f, 0.0f, 0.2f, 0.3f};
    gui.set_current_edit_dialog(edited);
    const std::size_t plain = engine.frame().size();
    engine.selection.push_back(edited->m_actor);

    const std::vector<DrawCall> calls = engine.frame();
    ASSERT_EQ(calls.size(), plain + 5 + 3);
    const DrawCall* at = &calls[plain];
    EXPECT_EQ(at[0].rect, CRect(0, 0, 800, 600));
    EXPECT_TRUE(at[0].color == VEC4(1.0f, 0.0f, 0.2f, 0.9f));
    EXPECT_EQ(at[1].rect, CRect(10, 20, 110, 220));
    EXPECT_TRUE(at[1].color == VEC4(0, 1, 1, 0.1f));
    ASSERT_EQ(at[2].points.size(), 5u);
    const VEC2 corners[] = {{10, 20}, {110, 20}, {110, 220}, {10, 220}, {10, 20}};
    for (int corner = 0; corner < 5; ++corner) {
        EXPECT_EQ(at[2].points[static_cast<std::size_t>(corner)].x, corners[corner].x);
        EXPECT_EQ(at[2].points[static_cast<std::size_t>(corner)].y, corners[corner].y);
    }
    EXPECT_TRUE(at[2].color == VEC4(0, 1, 1, 1));
    EXPECT_EQ(at[3].x, 781);
    EXPECT_EQ(at[3].y, 600 - 16 + 1);
    EXPECT_TRUE(at[3].color == VEC4(0, 0, 0, 1));
    EXPECT_EQ(at[4].x, 780);
    EXPECT_EQ(at[4].y, 600 - 16);
    EXPECT_EQ(at[4].position, 11);
    EXPECT_EQ(at[4].words, L"窗口0");
    EXPECT_TRUE(at[4].color == VEC4(0, 1, 1, 1));
    EXPECT_EQ(lefts({at + 5, at + 8}), (std::vector<int>{11}));

    edited->m_actor->set_visible(false);
    EXPECT_EQ(engine.frame().size(), plain - 3 + 5) << "hidden: the marks alone";
    edited->m_actor->set_visible(true);
    gui.set_current_edit_dialog(nullptr);
    EXPECT_EQ(engine.frame().size(), plain);
    gui.set_current_edit_dialog(edited);
    engine.m_formal_view = 1;
    EXPECT_EQ(engine.frame().size(), plain);
    engine.m_formal_view = 0;
    gui.prepare_run();
    EXPECT_EQ(engine.frame().size(), plain);
}

TEST(MarkColor, IsFullWhereTheVeilIsBelowAHalf) {
    EXPECT_TRUE(mark_color({0.5f, 0.5f, 0.5f, 1}, 1) == VEC4(0, 0, 0, 1));
    EXPECT_TRUE(mark_color({0, 0.49f, 0.51f, 0.9f}, 0.1f) == VEC4(1, 1, 0, 0.1f));
}

TEST_F(FrameTest, OneLayerForWhatDoesNotFade) {
    const VEC4 color(0.1f, 0.2f, 0.3f, 1.0f);
    const VEC4 disabled(0.4f, 0.4f, 0.4f, 0.15f);
    enum Shown { NO_PICTURE, OWN, NONE, STAND_IN };
    struct Row {
        const char* what;
        bool is_static, usable, running;
        bool normal, hover;
        bool has_device;
        VEC4 expected;
        Shown shown;
    };
    const Row rows[] = {
        {"static, no picture", true, true, true, false, false, true, color, NO_PICTURE},
        {"static", true, true, true, true, true, true, color, OWN},
        {"static never shows hover", true, true, true, false, true, true, color, NO_PICTURE},
        {"static, broken picture", true, true, true, true, false, false, color, NONE},
        {"disabled button", false, false, true, true, true, true, disabled, OWN},
        {"disabled, no picture", false, false, true, false, false, true, disabled, NO_PICTURE},
        {"disabled static", true, false, false, true, false, true, disabled, OWN},
        {"editor, no picture", false, true, false, false, false, true, color, NO_PICTURE},
        {"editor", false, true, false, true, true, true, color, OWN},
        {"editor, hover alone", false, true, false, false, true, true, color, STAND_IN},
        {"editor, broken picture", false, true, false, true, false, false, color, NONE},
        {"running button, no picture", false, true, true, false, false, true, color, NO_PICTURE},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        CSimpleGUIShape* subject = button(false, false, false);
        subject->m_is_static_pic = row.is_static;
        subject->m_is_usable = row.usable;
        if (row.normal) subject->m_texture = picture(row.has_device);
        if (row.hover) subject->m_texture_hover = picture(row.has_device);
        if (row.running) gui.prepare_run();
        subject->m_texture_mode = 2;
        subject->m_fade_now[2] = 0.125f;
        const std::vector<DrawCall> calls = shape_calls();
        ASSERT_EQ(calls.size(), 1u);
        EXPECT_EQ(calls[0].kind, row.shown == NO_PICTURE ? DrawCall::SOLID : DrawCall::TEXTURE);
        EXPECT_EQ(calls[0].rect, subject->m_rect);
        EXPECT_TRUE(calls[0].color == row.expected);
        IDeviceTexture* const own = subject->m_texture ? subject->m_texture->get_device_texture() : nullptr;
        EXPECT_EQ(calls[0].texture, row.shown == STAND_IN ? gui.m_shape_target.get() : own);
        EXPECT_EQ(subject->m_fade_now[2], 0.125f);
        if (row.running) gui.after_run();
        engine.scene.clear();
    }
    EXPECT_EQ(engine.device.textures_made, 1) << "one stand-in for the life of the module";
    EXPECT_EQ(gui.m_shape_target->width, 30u);
    EXPECT_EQ(gui.m_shape_target->height, 20u);
}

TEST_F(FrameTest, AMissingPictureOfAButtonIsReplaced) {
    struct Row {
        const char* what;
        // 0 none, 1 without a device side, 2 whole
        int state[3];
        // index of the picture that each layer shows, 3: the stand-in
        int shown[3];
    };
    const Row rows[] = {
        {"all there", {2, 2, 2}, {0, 1, 2}},     {"the normal one alone", {2, 0, 0}, {0, 0, 0}},
        {"no normal one", {0, 2, 0}, {3, 1, 3}}, {"broken hover", {2, 1, 2}, {0, 0, 2}},
        {"all broken", {1, 1, 1}, {3, 3, 3}},    {"broken normal, no hover", {1, 0, 2}, {3, 3, 2}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        CSimpleGUIShape* subject = button(false, false, false);
        CMyComPtr<ITexture>* const members[] = {&subject->m_texture, &subject->m_texture_hover,
                                                &subject->m_texture_down};
        IDeviceTexture* textures[4] = {};
        for (int index = 0; index < 3; ++index) {
            if (row.state[index] == 0) continue;
            *members[index] = picture(row.state[index] == 2);
            textures[index] = (*members[index])->get_device_texture();
        }
        gui.prepare_run();
        const std::vector<DrawCall> calls = shape_calls();
        textures[3] = gui.m_shape_target.get();
        ASSERT_EQ(calls.size(), 3u);
        for (std::size_t layer = 0; layer < 3; ++layer) EXPECT_EQ(calls[layer].texture, textures[row.shown[layer]]);
        gui.after_run();
        engine.scene.clear();
    }
}

TEST_F(FrameTest, ARunningButtonFadesBetweenItsPictures) {
    CSimpleGUIShape* subject = button(true, true, true);
    engine.set_seconds(10);
    gui.prepare_run();
    struct Step {
        double set_at;
        int mode;
        double drawn_at;
        float weights[3];
    };
    // A fade lasts half a second; a press is over in the first frame.
    const Step steps[] = {
        {10.0, 1, 10.0, {1, 0, 0}},
        {10.0, 2, 10.0, {1, 0, 0}},
        {10.0, 2, 10.25, {0.75f, 0.25f, 0}},
        {10.25, 1, 10.25, {0.75f, 0.25f, 0}},
        {10.25, 1, 10.5, {0.8125f, 0.1875f, 0}},
        {10.25, 1, 10.75, {1, 0, 0}},
        {11.0, 3, 11.0, {1, 0, 0}},
        {11.0, 3, 11.001, {0, 0, 1}},
        {11.5, 1, 11.75, {0.25f, 0, 0.75f}},
        {11.5, 1, 13.0, {1, 0, 0}},
    };
    for (const Step& step : steps) {
        engine.set_seconds(step.set_at);
        subject->set_texture_mode(step.mode);
        engine.set_seconds(step.drawn_at);
        const std::vector<DrawCall> calls = shape_calls();
        ASSERT_EQ(calls.size(), 3u);
        for (std::size_t layer = 0; layer < 3; ++layer) {
            EXPECT_NEAR(calls[layer].color.w, step.weights[layer], 1e-5) << step.drawn_at << " layer " << layer;
            EXPECT_EQ(calls[layer].color.z, 0.3f);
        }
    }
    subject->m_color.w = 0.2f;
    engine.set_seconds(20);
    EXPECT_NEAR(shape_calls()[0].color.w, 0.2f, 1e-6) << "no more opaque than its colour";
}

TEST_F(FrameTest, ARunBeginsWithTheNormalPictureAndLeavesTheOthersAsTheyWere) {
    CSimpleGUIShape* subject = button(true, true, true);
    subject->m_fade_now[2] = 0.5f;
    subject->m_color.w = 0.7f;
    gui.prepare_run();
    EXPECT_EQ(subject->m_fade_now[1], 0.7f);
    EXPECT_EQ(subject->m_fade_start[1], 0.7f);
    EXPECT_EQ(subject->m_fade_now[2], 0.5f);
}

TEST_F(FrameTest, TextsLieOverTheirShapeAndTheirShadow) {
    CSimpleGUIDialog* parent = dialog({100, 50, 300, 250});
    CSimpleGUIShape* subject = shape(parent, {110, 60, 130, 80});
    subject->m_title = L"中文";
    subject->m_font_org_position = FONT_LEFT_TOP;
    subject->m_font_color = {1, 0, 0, 0.5f};
    subject->m_font_shadow = 1;
    std::vector<DrawCall> calls = shape_calls();
    ASSERT_EQ(kinds(calls), (Kinds{DrawCall::SOLID, DrawCall::WORDS, DrawCall::WORDS}));
    EXPECT_EQ(calls[1].x, 12);
    EXPECT_EQ(calls[1].y, 12);
    EXPECT_TRUE(calls[1].color == VEC4(0, 0, 0, 1));
    EXPECT_EQ(calls[2].x, 10);
    EXPECT_EQ(calls[2].words, L"中文");
    EXPECT_EQ(calls[2].position, 0);
    EXPECT_TRUE(calls[2].color == VEC4(1, 0, 0, 0.5f));
    const CMyComPtr<IBaseFont> second(new IBaseFont(&engine.device));
    gui.m_setting->m_font_info->m_gui_fonts[1] = second.get();
    gui.m_setting->m_font_info->m_gui_fonts[2] = nullptr;
    for (int slot : {1, 2, 8, -1}) {
        subject->m_font_type = slot;
        EXPECT_EQ(shape_calls()[1].font, slot == 1 ? second.get() : engine.default_font) << slot;
    }
    engine.default_font = nullptr;
    EXPECT_EQ(shape_calls().size(), 1u) << "an engine without fonts";
    subject->m_title = L"";
    EXPECT_EQ(shape_calls().size(), 1u);
}

// Scripts and files can store any rectangle; the undefined behaviour sanitizer watches.
TEST_F(FrameTest, ExtremeRectanglesAreDrawnWithoutHarm) {
    CSimpleGUIShape* subject = button(false, true, false);
    subject->m_title = L"text";
    subject->m_font_shadow = 1;
    gui.set_current_edit_dialog(subject->m_parent_dialog);
    engine.selection.push_back(subject->m_actor);
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
    CSimpleGUIShape* subject = button(true, true, true);
    subject->m_title = L"text";
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
