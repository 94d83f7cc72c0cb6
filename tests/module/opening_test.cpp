// The order of dialogs and shapes through a save and a load, and files that no save has written.

#include <algorithm>
#include <cmath>

#include "support/allocations.h"
#include "support/gui_test.h"

class OpeningTest : public GuiTest {
protected:
    CSimpleGUIDialog* stored_dialog(int number) {
        auto* made = engine.make<CSimpleGUIDialog>(ITEM_TYPE_DIALOG);
        made->m_order_num = number;
        made->on_ready();
        return made;
    }
    CSimpleGUIShape* stored_shape(CSimpleGUIDialog* parent, int number) {
        auto* made = engine.make<CSimpleGUIShape>(ITEM_TYPE_SHAPE, parent);
        made->m_order_num = number;
        made->on_ready();
        return made;
    }
    template <class T>
    static std::vector<T*> items(const ItemList<T>& list) {
        std::vector<T*> all(list.begin(), list.end());
        std::erase(all, nullptr);
        return all;
    }
};
using Dialogs = std::vector<CSimpleGUIDialog*>;
using Shapes = std::vector<CSimpleGUIShape*>;

TEST_F(OpeningTest, OfEqualNumbersTheFirstStaysAndAllEndWell) {
    // The items in the order in which they are destroyed: 0 and 1 the dialogs, 2 and 3 the shapes of dialog 0.
    std::vector<int> order = {0, 1, 2, 3};
    do {
        CSimpleGUIDialog* kept = stored_dialog(4);
        CSimpleGUIDialog* dropped = stored_dialog(4);
        CSimpleGUIShape* kept_shape = stored_shape(kept, 1);
        CSimpleGUIShape* dropped_shape = stored_shape(kept, 1);
        gui.on_project_opened();
        ASSERT_EQ(items(gui.m_dialogs), (Dialogs{kept}));
        ASSERT_EQ(items(kept->m_shapes), (Shapes{kept_shape}));
        ASSERT_EQ(items(gui.m_shapes), (Shapes{kept_shape, dropped_shape}));
        EXPECT_EQ(dropped_shape->m_parent_dialog, kept);
        IBaseItem* all[] = {kept, dropped, kept_shape, dropped_shape};
        bool kept_lives = true;
        for (int which : order) {
            engine.scene.delete_alone(all[which]->m_actor);
            kept_lives = kept_lives && which != 0;
            for (CSimpleGUIShape* shape : gui.m_shapes) {
                EXPECT_EQ(shape->m_parent_dialog, kept_lives ? kept : nullptr);
                shape->update_rect();
                shape->update_fontpos();
            }
            engine.frame();
            engine.resize(700, 500);
        }
        EXPECT_TRUE(gui.m_dialogs.empty());
        EXPECT_TRUE(gui.m_shapes.empty());
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST_F(OpeningTest, AnOpeningWithoutMemoryLeavesNoShapeWithADialogThatIsGone) {
    // What the setting asks for is no part of this.
    gui.m_setting = nullptr;
    bool failed = true;
    for (std::size_t at = 0; failed; ++at) {
        CSimpleGUIDialog* parent = stored_dialog(0);
        for (int number = 0; number < 3; ++number) stored_shape(parent, number);
        {
            const FailingAllocation failure(at);
            gui.on_project_opened();
            failed = failure.was_met();
        }
        for (CSimpleGUIShape* shape : gui.m_shapes) {
            EXPECT_EQ(shape->m_parent_dialog != nullptr, parent->m_shapes.contains(shape));
        }
        engine.scene.delete_alone(parent->m_actor);
        for (CSimpleGUIShape* shape : gui.m_shapes) EXPECT_EQ(shape->m_parent_dialog, nullptr);
        engine.scene.clear();
    }
}

TEST_F(OpeningTest, ADroppedShapeCanBeGivenToAnotherDialog) {
    CSimpleGUIDialog* one = stored_dialog(0);
    CSimpleGUIDialog* two = stored_dialog(1);
    stored_shape(one, 1);
    CSimpleGUIShape* dropped = stored_shape(one, 1);
    gui.on_project_opened();
    dropped->change_parent_dialog(two);
    EXPECT_EQ(items(two->m_shapes), (Shapes{dropped}));
    engine.scene.delete_alone(one->m_actor);
    EXPECT_EQ(dropped->m_parent_dialog, two);
}

TEST_F(OpeningTest, ASaveNeverWritesTwoNumbersAlike) {
    CSimpleGUIDialog* kept = stored_dialog(4);
    CSimpleGUIDialog* dropped = stored_dialog(4);
    CSimpleGUIDialog* below = stored_dialog(5);
    CSimpleGUIShape* shapes[] = {stored_shape(kept, 1), stored_shape(kept, 1), stored_shape(kept, 0)};
    gui.on_project_opened();
    MemoryNode node;
    gui.on_save_project(&node, save);
    EXPECT_EQ(kept->m_order_num, 0);
    EXPECT_EQ(below->m_order_num, 1);
    EXPECT_EQ(dropped->m_order_num, 2) << "behind the others, so that the next load keeps it";
    EXPECT_EQ(shapes[2]->m_order_num, 0);
    EXPECT_EQ(shapes[0]->m_order_num, 1);
    EXPECT_EQ(shapes[1]->m_order_num, 2);
}

TEST_F(OpeningTest, NumbersThatAreNoneAreNotTakenFromAFile) {
    auto* dialog = engine.make<CSimpleGUIDialog>(ITEM_TYPE_DIALOG);
    auto* shape = engine.make<CSimpleGUIShape>(ITEM_TYPE_SHAPE, dialog);
    MemoryNode node;
    float endless = INFINITY;
    VEC4 color(1.0f, NAN, 0.0f, 1.0f);
    node.add_property("m_left_scaleMode", PAK_FLOAT, &endless);
    node.add_property("m_color", PAK_VEC4, &color);
    dialog->on_parse(&node, load);
    shape->on_parse(&node, load);
    EXPECT_EQ(dialog->m_left_scaleMode, 0.0f);
    EXPECT_EQ(shape->m_color, VEC4(1.0f, 1.0f, 1.0f, 0.2f));
}

// The next module of the process would otherwise destroy a tool that walks lists which are gone.
TEST(Engine, ARunThatWasLeftOpenEndsWithItsModule) {
    {
        ScratchEngine first;
        first.gui().prepare_run();
    }
    ScratchEngine second;
    second.gui().prepare_run();
    second.gui().after_run();
    EXPECT_EQ(second.gui().m_running, 0);
}
