// Where animations stand while they are played, paused, sought and turned round.

#include "host/system/animations.h"

#include <gtest/gtest.h>

#include <limits>

#include "host/core/clock.h"

namespace {

using namespace host;

constexpr PlayMode once{2, false, 1};
constexpr PlayMode twice{2, false, 2};
constexpr PlayMode forever{2, false, -1};
constexpr PlayMode there_and_back{2, true, 1};
constexpr PlayMode swinging{2, true, -1};

// Remembers the moments that it was asked to show.
class Witness final : public CAnimNodeBase {
public:
    explicit Witness(int* alive) : CAnimNodeBase(static_cast<EAnimNodeType>(7), {}), m_alive(alive) { ++*m_alive; }
    ~Witness() override { --*m_alive; }
    void create_tracks() override {}
    void animate(const SAnimateContext& context) override { shown = context; }
    bool record_key(const SAnimateContext&) override { return false; }

    SAnimateContext shown{-1, 0, 0};

private:
    int* m_alive;
};

class AnimationsTest : public testing::Test {
protected:
    void SetUp() override { use_settable_time(100); }
    void TearDown() override { use_real_time(); }
    // The moment that the next frame shows, -1 if it shows none.
    float frame_at(double seconds) {
        set_time(100 + seconds);
        witness->shown.m_time = -1;
        animations.step();
        return witness->shown.m_time;
    }
    Animation& animation_of(const anim_info& info) {
        Animation* made = animations.create_animation(L"A");
        made->set_anim_info(info);
        made->add_anim_node(witness);
        return *made;
    }

    int alive = 0;
    Animations animations;
    Witness* witness = new Witness(&alive);
};

}  // namespace

TEST(Playback, KnowsEveryMoment) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        PlayMode mode;
        double travelled;
        int direction;
        PlayMoment expected;
    } rows[] = {
        {once, 0, 1, {0, 1, false}},
        {once, 0.5, 1, {0.5, 1, false}},
        {once, 2, 1, {2, 1, true}},
        {once, 9, 1, {2, 1, true}},
        {once, 2, -1, {2, -1, false}},
        {once, 0.5, -1, {0.5, -1, false}},
        {once, -1, -1, {0, -1, true}},
        {twice, 2, 1, {0, 1, false}},
        {twice, 2, -1, {2, -1, false}},
        {twice, 3.5, 1, {1.5, 1, false}},
        {twice, 4, 1, {2, 1, true}},
        {forever, 2000.5, 1, {0.5, 1, false}},
        {forever, -0.5, -1, {1.5, -1, false}},
        {there_and_back, 2, 1, {2, 1, false}},
        {there_and_back, 3, 1, {1, -1, false}},
        {there_and_back, 4, 1, {0, -1, true}},
        {there_and_back, 4, -1, {0, 1, false}},
        {there_and_back, 3, -1, {1, 1, false}},
        {there_and_back, 1, -1, {1, -1, false}},
        {swinging, 7, 1, {1, -1, false}},
        {swinging, -1, -1, {1, 1, false}},
        {{2, false, 0}, 0, 1, {0, 1, true}},
        {{0, false, -1}, 5, 1, {0, 1, true}},
        {{-1, true, 1}, 5, -1, {0, -1, true}},
        {{nan, false, 1}, 5, 1, {0, 1, true}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.mode.length << (row.mode.there_and_back ? " there and back, " : ", ")
                                        << row.mode.count << " times, " << row.travelled << " by " << row.direction);
        const PlayMoment found = moment_at(row.mode, row.travelled, row.direction);
        EXPECT_DOUBLE_EQ(found.seconds, row.expected.seconds);
        EXPECT_EQ(found.direction, row.expected.direction);
        EXPECT_EQ(found.ended, row.expected.ended);
    }
}

TEST_F(AnimationsTest, PlayPauseSeekAndTurnRound) {
    Animation& shown = animation_of({2, 30, 0, 1, 1});
    EXPECT_EQ(frame_at(0), -1) << "nothing plays by itself";
    shown.reverse();
    EXPECT_EQ(frame_at(0.25), 0.25f) << "there is no way back from the beginning";
    shown.stop();
    set_time(100);
    shown.start();
    EXPECT_EQ(frame_at(0.5), 0.5f);
    shown.pause();
    EXPECT_EQ(frame_at(5), -1);
    shown.start();
    EXPECT_EQ(frame_at(5.25), 0.75f) << "a start goes on from a pause";
    shown.reverse();
    EXPECT_EQ(frame_at(5.5), 0.5f);
    EXPECT_EQ(witness->shown.m_speed, -1);
    shown.seek(1.5);
    EXPECT_EQ(witness->shown.m_time, 1.5f) << "shown at once";
    EXPECT_EQ(frame_at(6), 1.0f) << "and played from there";
    EXPECT_EQ(frame_at(9), 0.0f) << "the last moment is shown whatever the frames";
    EXPECT_EQ(shown.state(), PlayState::STOPPED);
    EXPECT_EQ(frame_at(9.5), -1);
    shown.reverse();
    EXPECT_EQ(frame_at(10), 0.5f);
    EXPECT_EQ(frame_at(20), 2.0f);
    shown.start();
    EXPECT_EQ(frame_at(20.5), 0.5f) << "a start behind the end is from the beginning";
    shown.stop();
    shown.seek(99);
    EXPECT_EQ(shown.state(), PlayState::PAUSED);
    EXPECT_EQ(shown.moment(), 2.0);
    shown.start();
    EXPECT_EQ(frame_at(21), 2.0f);
    for (const int count : {-1, 3}) {
        for (const float factor : {1.0f, -1.0f}) {
            shown.set_anim_info({2, 30, 0, count, factor});
            shown.stop();
            for (const double edge : {0.0, 2.0}) {
                shown.seek(edge);
                EXPECT_EQ(witness->shown.m_time, edge) << "not that of the time before or behind";
            }
        }
    }
}

TEST_F(AnimationsTest, TakeTheirSpeedFromTheFactor) {
    const struct {
        float factor;
        float expected;
    } rows[] = {{2, 1}, {0.5f, 0.25f}, {-1, 1.5f}, {0, 0}, {std::numeric_limits<float>::infinity(), 0}};
    Animation& shown = animation_of({});
    for (const auto& row : rows) {
        shown.set_anim_info({2, 30, 0, -1, row.factor});
        set_time(100);
        shown.stop();
        shown.start();
        EXPECT_EQ(frame_at(0.5), row.expected) << row.factor;
    }
    shown.set_anim_info({4, 30, 0, -1, 1});
    EXPECT_EQ(frame_at(1), 0.5f) << "what plays goes on from where it stands";
}

TEST_F(AnimationsTest, OwnTheirNodes) {
    animation_of({}).add_anim_node(nullptr);
    animations.create_animation(nullptr)->add_anim_node(new IAnimNode);
    EXPECT_EQ(animations.find(L"")->nodes().size(), 0u);
    EXPECT_EQ(animations.find(L"A")->nodes().size(), 1u);
    EXPECT_EQ(animations.find(L"B"), nullptr);
    animations.find(L"A")->starts_by_itself = true;
    animations.start_those_that_start_by_themselves();
    EXPECT_EQ(frame_at(1), 1.0f);
    animations.clear();
    EXPECT_EQ(alive, 0);
}
