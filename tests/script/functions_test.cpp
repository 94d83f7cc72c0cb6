// The script functions as a script sees them: the module in the reference host, driven from Lua.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "host/core/item_store.h"
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
        platform_functions functions = host::default_platform_functions();
        functions.cursor_position = [] { return CPoint(300, 200); };
        host::set_platform_functions(functions);
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
        host::ProjectNode& script = project.items[3].data.add("m_func_left_down");
        script.set("type", static_cast<int>(host::ITEM_TYPE_SCRIPT));
        script.set("script", tstringW(L"gui_script_del_ctrl('S') gui_script_del_ctrl('S')\n"
                                      L"assert(get_ctrl_size('S').x == 0) gui_script_show_ctrl('T', 0)"));
        ASSERT_TRUE(engine.open_document(project, "", error)) << error;
    }
    void TearDown() override { host::set_platform_functions(host::default_platform_functions()); }

    void run(const std::string& text) { engine.scripts().run(text, {CGuid(), L"", ""}); }
    /// The left edges of the rectangles of a frame, in the order in which they are drawn.
    std::vector<int> drawn() {
        engine.draw_scene = {};
        engine.frame(0.0);
        std::vector<int> edges;
        for (const host::DrawCall& call : device.calls())
            if (call.op == host::DrawCall::RECT) edges.push_back(call.rect.left);
        return edges;
    }

    host::RecordingDevice device;
    host::Engine engine{device, L""};
    std::string errors;
};

}  // namespace

TEST_F(Functions, DoWhatTheirNamesSay) {
    std::ifstream file(TEST_FOLDER "/functions.lua");
    std::stringstream text;
    // In front of the first line, so that errors name the right ones.
    text << "PICTURE = \"" PICTURES "/menu_normal.png\" ";
    text << file.rdbuf();
    engine.scripts().run(text.str(), {CGuid(), L"functions.lua", ""});
    EXPECT_EQ(errors, "");
}

TEST_F(Functions, ShowHideAndLayerWhatAFrameDraws) {
    constexpr int s = 110;
    constexpr int t = 200;
    const struct {
        const char* script;
        std::vector<int> drawn;
    } rows[] = {
        {"", {s, t}},
        {"gui_script_set_ctrl_layer('T', 0)", {t, s}},
        {"gui_script_set_ctrl_layer('T', 2)", {s, t}},
        {"gui_script_set_ctrl_layer('S', 1)", {t, s}},
        {"gui_script_show_ctrl('S', 0)", {t}},
        {"gui_script_show_ctrl('S', 3) gui_script_show_ctrl('S', -1)", {t}},
        {"gui_script_show_ctrl('S', 2)", {t, s}},
        {"gui_script_show_ctrl('S', 1)", {t, s}},
        {"gui_script_show_dialog('D', 2)", {}},
        {"gui_script_show_dialog('D', 1)", {t, s}},
        {"set_ctrl_bkimage('S', 1)", {s, t}},
        {"gui_script_show_gui(0)", {}},
        {"gui_script_show_gui(3)", {}},
        {"gui_script_show_gui(2)", {s, t}},
        {"gui_script_show_gui(2)", {}},
        {"gui_script_show_gui(1)", {s, t}},
    };
    drawn();
    engine.m_system_state = SYSTEM_STATE_FOUR;
    for (const auto& row : rows) {
        run(row.script);
        EXPECT_EQ(drawn(), row.drawn) << row.script;
    }
    EXPECT_EQ(errors, "");
}

TEST_F(Functions, FindPicturesInThreePlaces) {
    namespace fs = std::filesystem;
    const fs::path folder = fs::path(testing::TempDir()) / "sgui three places";
    fs::remove_all(folder);
    fs::create_directories(folder / "show_textures");
    fs::create_directories(folder / "resources" / "only.png");
    fs::copy_file(PICTURES "/menu_normal.png", folder / "show_textures" / "both.png");
    for (const char* name : {"both.png", "late.png"}) fs::copy_file(PICTURES "/logo.png", folder / "resources" / name);
    engine.project_file_path = (folder / "show.sgui").wstring();
    engine.resource_directory = (folder / "resources/").wstring();
    run("local function same(v, height, width) assert(v.x == height and v.y == width and v.z == 0, tostring(v)) end\n"
        // A folder is no picture. What was not found fills its slot, so no later picture is the first.
        "same(set_ctrl_texture('T', 0, 'only.png'), 20, 20) assert(get_ctrl_texture('T', 0) == '文件不存在')\n"
        "same(set_ctrl_texture('T', 1, [[C:\\art\\both.png]]), 56, 192)\n"
        "assert(get_ctrl_texture('T', 1):match('show_textures\\\\\\\\both.png$'), get_ctrl_texture('T', 1))\n"
        "assert(get_ctrl_bkcolor('T').a < 1)\n"
        "same(set_ctrl_texture('S', 2, '/art/late.png'), 48, 48) assert(get_ctrl_bkcolor('S').a == 1)");
    EXPECT_EQ(errors, "");
    fs::remove_all(folder);
}

// The rest of the script still runs, and so does what comes behind it.
TEST_F(Functions, MayDeleteTheShapeWhoseScriptRuns) {
    engine.start_run();
    EXPECT_TRUE(engine.mouse(host::InputKind::LEFT_DOWN, 115, 65));
    EXPECT_EQ(errors, "");
    EXPECT_EQ(drawn(), std::vector<int>());
    EXPECT_FALSE(engine.mouse(host::InputKind::LEFT_DOWN, 115, 65));
    engine.mouse(host::InputKind::LEFT_UP, 115, 65);
    engine.mouse(host::InputKind::MOVE, 205, 65);
    EXPECT_EQ(engine.scene().size(), 4u);
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
