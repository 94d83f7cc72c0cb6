// The script functions as a script sees them: the module in the reference host, driven from Lua.

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "host/core/recording_device.h"
#include "host/system/engine.h"
#include "host/system/platform.h"

namespace {

constexpr const char* ids[] = {"00000000-0000-0000-0000-000000000001", "00000000-0000-0000-0000-000000000002",
                               "00000000-0000-0000-0000-000000000003", "00000000-0000-0000-0000-000000000004",
                               "00000000-0000-0000-0000-000000000005"};

host::ProjectItem item(unsigned long type, const char* id, const wchar_t* name, const CRect& rect) {
    host::ProjectItem made;
    made.type = type;
    const std::string text(id);
    made.id = CGuid(std::wstring(text.begin(), text.end()).c_str());
    made.name = name;
    made.data.set("m_offsetx", static_cast<int>(rect.left));
    made.data.set("m_offsety", static_cast<int>(rect.top));
    made.data.set("m_rect", rect);
    return made;
}

class Functions : public testing::Test {
public:
    void SetUp() override {
        std::string error;
        ASSERT_TRUE(engine.load_module(MODULE_PATH, error)) << error;
        host::set_platform_functions({[] {}, [] { return CPoint(300, 200); }});
        engine.scripts().on_error = [this](const std::string& line) { errors += line + "\n"; };
        engine.new_project(800, 600);
        host::ProjectDocument project;
        project.items.push_back(item(ITEM_TYPE_DIALOG, ids[0], L"D", {100, 50, 500, 350}));
        project.items.push_back(item(ITEM_TYPE_DIALOG, ids[1], L"E", {0, 0, 1, 1}));
        project.items.push_back(item(ITEM_TYPE_DIALOG, ids[2], L"F", {0, 0, 1, 1}));
        project.items.push_back(item(ITEM_TYPE_SHAPE, ids[3], L"S", {10, 10, 30, 30}));
        project.items.push_back(item(ITEM_TYPE_SHAPE, ids[4], L"T", {100, 10, 120, 30}));
        for (std::size_t shape : {3u, 4u}) project.items[shape].parent = project.items[0].id;
        project.items[3].flag = 1;
        ASSERT_TRUE(engine.open_document(project, "", error)) << error;
    }
    void TearDown() override { host::set_platform_functions(host::default_platform_functions()); }

    host::RecordingDevice device;
    host::Engine engine{device, L""};
    std::string errors;
};

}  // namespace

TEST_F(Functions, DoWhatTheirNamesSay) {
    std::ifstream file(TEST_FOLDER "/functions.lua");
    std::stringstream text;
    // In front of the first line, so that errors name the right ones.
    text << "PICTURE = \"" PICTURE_PATH "\" ";
    text << file.rdbuf();
    engine.scripts().run(text.str(), {CGuid(), L"functions.lua", ""});
    EXPECT_EQ(errors, "");
}

TEST_F(Functions, StandInTheTableWholeAndInOrder) {
    const auto& functions = engine.scripts().functions();
    ASSERT_EQ(functions.size(), 42u);
    std::size_t params = 0;
    std::size_t results = 0;
    for (std::size_t at = 0; at < functions.size(); ++at) {
        params += functions[at]->desc.params.size();
        results += functions[at]->desc.ret_param ? 1 : 0;
        EXPECT_EQ(functions[at]->category, at < 10 ? L"GUI-对话框" : L"GUI-控件");
    }
    EXPECT_EQ(params + results, 102u);
    EXPECT_EQ(functions.front()->desc.func_name, L"gui_script_show_gui");
    EXPECT_EQ(functions.back()->desc.func_name, L"get_ctrl_texture");
    EXPECT_EQ(functions[27]->desc.params[1]->hint, XP_CHOICE) << "of the truth values the shadow alone offers a choice";
}
