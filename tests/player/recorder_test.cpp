// What a person does in a window comes back as a scenario that does the same and notices where it no longer comes to
// the same.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "host/core/clock.h"
#include "host/core/sdl_device.h"
#include "player/scenario_library.h"

namespace {

namespace fs = std::filesystem;

class Recording : public testing::Test {
public:
    void SetUp() override {
        std::string error;
        ASSERT_TRUE(library.load(error)) << error;
        ASSERT_TRUE(engine.load_module(MODULE_PATH, error)) << error;
        host::use_settable_time(0.0);
        engine.new_project(1280, 720);
        ASSERT_TRUE(engine.open_project(PROJECT_PATH, error)) << error;
        recorder.reset(library.make_recorder(engine));
        engine.on_message = [](const std::string&) {};
        engine.start_run();
        recorder->began(PROJECT_PATH, host::now());
    }

    void mouse(host::InputKind kind, int x, int y) {
        host::advance_time(0.25);
        engine.frame(host::now());
        recorder->before_mouse();
        engine.mouse(kind, x, y);
        recorder->after_mouse(kind, x, y, host::now());
    }

    // Empty where the scenario comes to its end.
    std::string failure_of(const std::string& scenario) {
        const std::string file = testing::TempDir() + "recorded.lua";
        std::ofstream(file, std::ios::binary) << scenario;
        std::string error;
        library.run({file, {}, MODULE_PATH}, error);
        fs::remove(file);
        return error;
    }

    player::ScenarioLibrary library;
    std::unique_ptr<host::SdlDevice> device = host::SdlDevice::in_memory();
    host::Engine engine{*device, L""};
    std::unique_ptr<scenario::Recorder> recorder;
};

}  // namespace

TEST_F(Recording, RepeatsWhatWasPressedAndNoticesWhatIsDifferent) {
    using host::InputKind;
    mouse(InputKind::MOVE, 640, 300);
    mouse(InputKind::MOVE, 150, 290);
    mouse(InputKind::LEFT_DOWN, 150, 290);
    mouse(InputKind::LEFT_UP, 150, 290);
    engine.resize(1600, 900);
    recorder->resized(1600, 900, host::now());
    engine.frame(host::now());
    const std::string text = recorder->text(host::now());
    recorder.reset();
    engine.close();

    EXPECT_EQ(text.find("640, 300"), std::string::npos) << "a move over nothing leaves no trace";
    EXPECT_NE(text.find("at(0.75, \"left_down\", 150, 290, {\"菜单造型 left_down\"})"), std::string::npos) << text;
    EXPECT_EQ(failure_of(text), "");
    std::string elsewhere = text;
    elsewhere.replace(elsewhere.find("\"left_down\", 150"), 16, "\"left_down\", 640");
    EXPECT_NE(failure_of(elsewhere).find("left_down at 0.75 s"), std::string::npos);
    const std::size_t rect = text.rfind("m_rect, {");
    ASSERT_NE(rect, std::string::npos) << "the last view is larger, so something lies elsewhere";
    std::string moved = text;
    moved.insert(rect + 9, "1");
    EXPECT_NE(failure_of(moved).find("they differ"), std::string::npos);
}

TEST_F(Recording, NoticesWhatNoLongerGoes) {
    engine.scene().delete_actor(engine.scene().find_any(std::wstring_view(L"信息编号")));
    const std::string text = recorder->text(host::now());
    recorder.reset();
    engine.close();

    EXPECT_NE(failure_of(text).find("信息编号"), std::string::npos) << text;
}
