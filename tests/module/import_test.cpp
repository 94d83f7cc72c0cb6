#include <algorithm>
#include <cstring>
#include <map>

#include "support/gui_test.h"

namespace {

/// A node of an engine that does no more than it must: buffers filled to the brim, nulls wherever there may be some.
class BareNode final : public CPakNode {
public:
    CPakNode* find(const char* name) override {
        const auto found = below.find(name);
        return found == below.end() ? nullptr : found->second.get();
    }
    CPakNode* find_data(const char* name, int type, void* out, int) override {
        CPakNode* found = find(name);
        if (found && type == 3) std::memcpy(out, &static_cast<BareNode*>(found)->number, sizeof number);
        if (found && type != 3) std::fill_n(static_cast<char16_t*>(out), type == 6 ? 64 : type == 20 ? 256 : 260, u'x');
        return found;
    }
    std::list<CPakNode*>* get_children() override { return children.empty() ? nullptr : &children; }
    tstringW get_name() const override { return L"node"; }
    int get_length() const override { return -1; }
    void get_buffer_to_mem_allocated(void*, int) const override { ADD_FAILURE() << "there is no data"; }
    CPakFile* get_pak_file() const override { return nullptr; }

    BareNode& operator[](const std::string& name) {
        std::unique_ptr<BareNode>& node = below[name];
        if (!node) node = std::make_unique<BareNode>();
        return *node;
    }

    std::map<std::string, std::unique_ptr<BareNode>> below;
    std::list<CPakNode*> children;
    int number = 0;
};

}  // namespace

TEST_F(GuiTest, ImportStandsABareEngine) {
    BareNode control;
    control["NAME"], control["Caption"];
    control["Type"].number = 11;
    control["Texture"]["FILENAME"];
    BareNode panel;
    panel["text_buf"], panel["panel_pos"];
    BareNode stage;
    stage.children = {nullptr, &panel};
    BareNode top;
    top["GUI"]["Root Dialog"]["ROOT"]["Controls"].children = {&control, nullptr};
    top["GUI"]["Dialogs"];
    top["UIStages"].children = {nullptr, &stage};
    // This engine has no animations.
    top["Timebar"]["BARS"].children = {nullptr, &panel};
    gui.on_open_old_zov_project(&top);
    gui.on_open_old_zov_project(nullptr);

    ASSERT_EQ(gui.m_shapes.size(), 2u);
    EXPECT_EQ(gui.m_shapes.front()->m_actor->get_name(), std::wstring(63, L'x'));
    EXPECT_EQ(gui.m_shapes.front()->m_title, std::wstring(255, L'x'));
    EXPECT_EQ(gui.m_shapes.front()->m_texture->file_name, L"文件不存在");
    EXPECT_EQ(gui.m_shapes.back()->m_title, L"");
    EXPECT_EQ(gui.m_dialogs.size(), 2u);
    EXPECT_EQ(gui.m_root_dialog, gui.m_dialogs.back());
    EXPECT_EQ(gui.m_legacy_texture_folder, L"_textures/");
}
