// The order of dialogs and shapes through a save and a load, and files that no save has written.

#include <algorithm>
#include <cmath>

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
        return {list.begin(), list.end()};
    }
};
using Dialogs = std::vector<CSimpleGUIDialog*>;
using Shapes = std::vector<CSimpleGUIShape*>;

TEST_F(OpeningTest, HangsShapesIntoTheirDialogsAndSortsBoth) {
    CSimpleGUIDialog* second = stored_dialog(5);
    CSimpleGUIDialog* first = stored_dialog(2);
    first->set_rect({100, 100, 200, 200}, true);
    CSimpleGUIShape* top = stored_shape(first, 0);
    top->m_offsetx = 7;
    CSimpleGUIShape* bottom = stored_shape(first, 9);
    CSimpleGUIShape* middle = stored_shape(first, 3);
    CSimpleGUIShape* other = stored_shape(second, 0);
    auto* stray = stored_shape(nullptr, 0);
    const CMyComPtr<IBaseItem> stranger(new IBaseItem);
    engine.scene.create_actor(stranger.get(), nullptr, 1);
    auto* under_stranger = engine.make<CSimpleGUIShape>(ITEM_TYPE_SHAPE, stranger.get());
    under_stranger->on_ready();

    gui.on_project_opened();
    EXPECT_EQ(items(gui.m_dialogs), (Dialogs{first, second}));
    EXPECT_EQ(items(first->m_shapes), (Shapes{bottom, middle, top}));
    EXPECT_EQ(items(second->m_shapes), (Shapes{other}));
    EXPECT_EQ(items(gui.m_shapes), (Shapes{top, bottom, middle, other, stray, under_stranger})) << "order of loading";
    EXPECT_EQ(top->m_parent_dialog, first);
    EXPECT_EQ(top->m_rect.left, 107);
    EXPECT_EQ(first->m_last_rect, first->m_rect);
    EXPECT_EQ(stray->m_parent_dialog, nullptr);
    EXPECT_EQ(under_stranger->m_parent_dialog, nullptr) << "only a dialog is a frame";
}

TEST_F(OpeningTest, ADialogTakesItsPlaceFromThePresentView) {
    auto* subject = engine.make<CSimpleGUIDialog>(ITEM_TYPE_DIALOG);
    subject->m_rect = {1, 1, 201, 101};
    subject->m_iAlignType = 8;
    subject->m_offsetx = -100;
    subject->m_offsety = -50;
    subject->on_ready();
    EXPECT_EQ(subject->m_rect, CRect(300, 250, 500, 350));
}

TEST_F(OpeningTest, ADialogThatWasNeverNumberedEndsTheSorting) {
    for (const bool first_is_numbered : {false, true}) {
        CSimpleGUIDialog* one = stored_dialog(first_is_numbered ? 7 : -1);
        CSimpleGUIDialog* two = stored_dialog(first_is_numbered ? -1 : 7);
        CSimpleGUIShape* high = stored_shape(one, 0);
        CSimpleGUIShape* low = stored_shape(one, 1);
        gui.m_scene_rect = {0, 0, 11, 12};
        one->m_last_rect = {1, 2, 3, 4};
        gui.on_project_opened();
        EXPECT_EQ(items(gui.m_dialogs), (Dialogs{one, two}));
        EXPECT_EQ(items(one->m_shapes), first_is_numbered ? (Shapes{low, high}) : (Shapes{high, low}));
        EXPECT_EQ(gui.m_scene_rect, CRect(0, 0, 11, 12));
        EXPECT_EQ(one->m_last_rect, CRect(1, 2, 3, 4));
        EXPECT_EQ(high->m_parent_dialog, one);
        engine.scene.clear();
    }
}

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

TEST_F(OpeningTest, SavedOrderComesBackAroundARemovalThatIsUndone) {
    CSimpleGUIDialog* one = dialog({0, 0, 10, 10});
    CSimpleGUIDialog* two = dialog({0, 0, 20, 20});
    CSimpleGUIShape* a = shape(two, {1, 0, 2, 2});
    CSimpleGUIShape* b = shape(two, {3, 0, 4, 2});
    CSimpleGUIShape* c = shape(two, {5, 0, 6, 2});
    engine.remove(b);
    MemoryNode node;
    gui.on_save_project(&node, save);
    engine.restore(b);
    std::vector<std::unique_ptr<MemoryNode>> stored;
    for (IBaseItem* item : std::vector<IBaseItem*>{c, a, b}) {
        stored.push_back(std::make_unique<MemoryNode>());
        item->save_to_node(stored.back().get(), save);
    }
    const int numbers[] = {one->m_order_num, two->m_order_num};
    engine.scene.clear();

    gui.on_clean_project();
    gui.on_open_project(&node, load);
    CSimpleGUIDialog* lower = stored_dialog(numbers[0]);
    CSimpleGUIDialog* upper = stored_dialog(numbers[1]);
    Shapes read;
    for (const auto& from : stored) {
        read.push_back(engine.make<CSimpleGUIShape>(ITEM_TYPE_SHAPE, upper));
        read.back()->on_parse(from.get(), load);
        read.back()->on_ready();
    }
    gui.on_project_opened();
    EXPECT_EQ(items(gui.m_dialogs), (Dialogs{upper, lower}));
    EXPECT_EQ(items(upper->m_shapes), (Shapes{read[1], read[2], read[0]}));
    EXPECT_EQ(read[2]->m_rect, CRect(3, 0, 4, 2));
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
