// Animations as a project brings them: module and host together, through a file and back, and from Lua.

#include <gtest/gtest.h>

#include "host/core/clock.h"
#include "host/core/project_file.h"
#include "host/core/recording_device.h"
#include "host/core/text_conversion.h"
#include "host/system/engine.h"

namespace {

constexpr const char* project_text = R"(<?xml version="1.0" encoding="UTF-8"?>
<project version="1">
  <items>
    <item type="83783" id="00000000-0000-0000-0000-000000000001" name="D">
      <int key="m_iAlignType" value="0"/>
      <rect key="m_rect" value="0 0 400 300"/>
      <int key="m_order_num" value="0"/>
    </item>
    <item type="83782" id="00000000-0000-0000-0000-000000000002" parent="00000000-0000-0000-0000-000000000001" name="S">
      <rect key="m_rect" value="10 10 50 30"/>
    </item>
  </items>
  <animations>
    <animation name="滑入 &quot;1&quot;" length="2" rate="0.1" mode_flag="0" mode_count="1" factor="1" start="1">
      <anim_node type="1001" item="00000000-0000-0000-0000-000000000001">
        <node name="tracks">
          <node name="track">
            <int key="track_type" value="1005"/>
            <node name="keys">
              <node name="child">
                <float key="time" value="0"/>
                <int key="align" value="9"/>
              </node>
            </node>
          </node>
          <node name="track">
            <int key="track_type" value="1002"/>
            <node name="keys">
              <node name="child">
                <float key="time" value="0"/>
                <vec3 key="offset" value="0 0 0"/>
                <vec3 key="offset_percent" value="0 0 0"/>
              </node>
              <node name="child">
                <float key="time" value="2"/>
                <vec3 key="offset" value="800 0 0"/>
                <vec3 key="offset_percent" value="0.5 0.5 0"/>
              </node>
            </node>
          </node>
          <node name="track">
            <int key="track_type" value="1003"/>
          </node>
        </node>
      </anim_node>
      <anim_node type="1001" item="00000000-0000-0000-0000-0000000000AA"/>
    </animation>
    <animation name="empty" length="nan" mode_flag="1" factor="-1"/>
  </animations>
</project>
)";

class ProjectAnimations : public testing::Test {
protected:
    void SetUp() override {
        host::use_settable_time(0);
        std::string error;
        ASSERT_TRUE(engine.load_module(MODULE_PATH, error)) << error;
        engine.scripts().on_error = [this](const std::string& line) { said += line + "\n"; };
        engine.scripts().on_print = engine.scripts().on_error;
    }
    void TearDown() override {
        engine.close();
        host::use_real_time();
    }
    void open(const std::string& text, int width, int height) {
        host::ProjectDocument document;
        std::string error;
        ASSERT_TRUE(host::parse_project(text, "p.sgui", document, error)) << error;
        engine.new_project(width, height);
        ASSERT_TRUE(engine.open_document(document, "p.sgui", error)) << error;
    }
    std::string saved() {
        std::string error;
        return host::format_project(engine.document("p.sgui"), error);
    }
    // Left and top of the dialog, as the GUI's own script function tells them.
    std::string place_of_dialog() { return lua("local r = get_wnd_rect('D') print(r[1] .. ' ' .. r[2])"); }
    std::string lua(const std::string& text) {
        said.clear();
        engine.scripts().run(text, {CGuid(), L"按钮", "left_down"});
        return said;
    }
    void frame_at(double seconds) {
        host::set_time(seconds);
        engine.frame(seconds);
    }
    host::Animation& slide() { return *engine.animations().find(L"滑入 \"1\""); }

    host::RecordingDevice device;
    host::Engine engine{device, L""};
    std::string said;
};

}  // namespace

TEST_F(ProjectAnimations, ComeBackFromTheirFile) {
    open(project_text, 800, 600);
    const std::string once = saved();
    EXPECT_NE(once.find(R"(<animation name="滑入 &quot;1&quot;" length="2" rate="0.1" mode_flag="0" mode_count="1")"
                        R"( factor="1" start="1">)"),
              std::string::npos)
        << once;
    EXPECT_NE(once.find(R"(<animation name="empty" length="nan" rate="30" mode_flag="1" mode_count="-1")"
                        R"( factor="-1" start="0"/>)"),
              std::string::npos)
        << once;
    open(once, 800, 600);
    EXPECT_EQ(saved(), once);
    EXPECT_EQ(slide().nodes().size(), 2u) << "a node whose item is gone stays";
    CAnimNodeBase& opened = *slide().nodes().front();
    EXPECT_TRUE(opened.record_key({1})) << "into the tracks that were read";
    EXPECT_EQ(opened.get_track(TRACK_TYPE_OFFSET)->get_key_count(), 3);
    EXPECT_EQ(opened.get_tracklist().size(), 3u);
    engine.scene().delete_actor(engine.scene().search_item_by_name(L"D", ITEM_TYPE_DIALOG)->m_actor);
    engine.start_run();
    frame_at(1);
    EXPECT_EQ(slide().nodes().size(), 2u);
}

TEST_F(ProjectAnimations, OpenInLineWithTheView) {
    open(project_text, 1000, 600);
    engine.start_run();
    frame_at(1);
    EXPECT_EQ(place_of_dialog(), "250.0 150.0\n")
        << "half-way to the middle of a view that is wider than the saved one";
    engine.resize(600, 300);
    frame_at(9);
    EXPECT_EQ(place_of_dialog(), "300.0 150.0\n") << "resized while it plays";
    EXPECT_EQ(slide().state(), host::PlayState::STOPPED);
}

TEST_F(ProjectAnimations, WithKindsThatNobodyMakesAreRefused) {
    const struct {
        const char* from;
        const char* to;
        const char* error;
    } rows[] = {
        {R"(anim_node type="1001" item="00000000-0000-0000-0000-0000000000AA")", R"(anim_node type="9")",
         "p.sgui:46: unknown kind of animation node (found type 9"},
        {R"(value="1003")", R"(value="9")", "p.sgui:15: unknown kind of track (found type 9"},
        {R"(key="track_type" value="1003")", R"(key="type" value="1003")",
         "p.sgui:15: unknown kind of track (found no track_type"},
    };
    open(project_text, 800, 600);
    for (const auto& row : rows) {
        std::string text = project_text;
        text.replace(text.find(row.from), std::string(row.from).size(), row.to);
        host::ProjectDocument document;
        std::string error;
        ASSERT_TRUE(host::parse_project(text, "p.sgui", document, error)) << error;
        EXPECT_FALSE(engine.open_document(document, "p.sgui", error));
        EXPECT_TRUE(error.starts_with(row.error)) << error;
        EXPECT_EQ(engine.animations().all().size(), 2u) << "the open project stays";
    }
}

TEST_F(ProjectAnimations, ObeyScripts) {
    open(project_text, 800, 600);
    engine.start_run();
    frame_at(1);
    EXPECT_EQ(lua("print(animation_state('滑入 \"1\"'))"), "playing\t1.0\n");
    lua("animation_pause('滑入 \"1\"')");
    frame_at(5);
    EXPECT_EQ(lua("animation_seek('滑入 \"1\"', 2) print(animation_state('滑入 \"1\"'))"), "paused\t2.0\n");
    lua("animation_reverse('滑入 \"1\"')");
    frame_at(5.5);
    EXPECT_EQ(lua("print(animation_state('滑入 \"1\"'))"), "playing\t1.5\n");
    EXPECT_EQ(lua("animation_stop('滑入 \"1\"') print((animation_state('滑入 \"1\"')))"), "stopped\n");
    EXPECT_EQ(lua("animation_start('滑出')"),
              "按钮, left_down, line 1: bad argument #1 to 'animation_start' (there is no animation \"滑出\")\n");
    EXPECT_EQ(lua("animation_seek('empty', 0/0)"),
              "按钮, left_down, line 1: bad argument #2 to 'animation_seek' (must be a number of seconds)\n");
    lua("animation_start('滑入 \"1\"')");
    engine.stop_run();
    EXPECT_EQ(slide().state(), host::PlayState::STOPPED);
}
