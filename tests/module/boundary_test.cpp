// Whatever fails inside of an operation ends there.

#include <functional>

#include "animation/anim_node.h"
#include "fonts/font_info.h"
#include "module/setting.h"
#include "support/allocations.h"
#include "support/gui_test.h"

TEST_F(GuiTest, AShapeWhoseActorStaysBehindStaysToo) {
    CSimpleGUIDialog* former = dialog({0, 0, 100, 100});
    CSimpleGUIDialog* next = dialog({200, 200, 300, 300});
    CSimpleGUIShape* moved = shape(former, {10, 10, 50, 50});
    const auto stands_in = [&](const CSimpleGUIDialog* subject) {
        return moved->m_parent_dialog == subject && moved->m_actor->get_parent() == subject->m_actor &&
               former->m_shapes.contains(moved) == (subject == former) &&
               next->m_shapes.contains(moved) == (subject == next);
    };
    auto& actor = static_cast<ScratchActor&>(*moved->m_actor);
    actor.is_fixed = true;
    moved->change_parent_dialog(next);
    EXPECT_TRUE(stands_in(former));
    actor.is_fixed = false;
    moved->change_parent_dialog(next);
    EXPECT_TRUE(stands_in(next));
}

TEST_F(GuiTest, NoOperationLetsWantOfMemoryOut) {
    CGlobalGUISetting& setting = *gui.m_setting;
    const auto fonts = [&]() -> CGlobalFontInfo& { return *setting.m_font_info; };
    CSimpleGUIDialog* parent = dialog({0, 0, 100, 100});
    CSimpleGUIShape* child = shape(parent, {10, 10, 50, 50});
    child->m_title = L"A title that is too long to lie in the text itself";
    const CMyComPtr<CAnimNodeBase> node(
        AnimSystemLibrary::create_anim_node_by_type(&engine, ANIM_NODE_TYPE_GUI, child->m_actor->get_id()));
    MemoryNode of_fonts, of_dialog, of_shape, of_project;
    fonts().save_to_node(&of_fonts, save);
    parent->save_to_node(&of_dialog, save);
    child->save_to_node(&of_shape, save);
    gui.on_save_project(&of_project, save);
    float time = 0.0f;
    const std::pair<const char*, std::function<void()>> operations[] = {
        {"fonts: save_to_node",
         [&] {
             MemoryNode to;
             fonts().save_to_node(&to, save);
         }},
        {"fonts: on_parse", [&] { fonts().on_parse(&of_fonts); }},
        {"fonts: the sample", [&] { engine.device.calls = {}, fonts().debug_draw_font(); }},
        {"setting: save_to_node",
         [&] {
             MemoryNode to;
             setting.save_to_node(&to, save);
         }},
        {"dialog: save_to_node",
         [&] {
             MemoryNode to;
             parent->save_to_node(&to, save);
         }},
        {"dialog: on_parse", [&] { parent->on_parse(&of_dialog, load); }},
        {"shape: save_to_node",
         [&] {
             MemoryNode to;
             child->save_to_node(&to, save);
         }},
        {"shape: on_parse", [&] { child->on_parse(&of_shape, load); }},
        {"on_open_project", [&] { gui.on_open_project(&of_project, load); }},
        {"create_shape", [&] { gui.create_shape(parent); }},
        {"create_dialog", [&] { gui.create_dialog(); }},
        {"record_key", [&] { node->record_key({++time}); }},
        {"prepare_run", [&] { gui.prepare_run(); }},
        {"on_register_xfunc", [&] { gui.on_register_xfunc(); }},
        {"on_clean_project", [&] { gui.on_clean_project(); }},
    };
    for (const auto& [name, operation] : operations) {
        bool failed = true;
        for (std::size_t at = 0; failed; ++at) {
            fonts().change_font(fonts().m_default_logfont, 1, false);
            bool left = false;
            {
                const FailingAllocation failure(at);
                try {
                    operation();
                } catch (const std::bad_alloc&) {
                    left = true;
                }
                failed = failure.was_met();
            }
            ASSERT_FALSE(left) << name << ", allocation " << at;
            ASSERT_TRUE(at > 0 || failed) << name << " asks for nothing";
        }
    }
}
