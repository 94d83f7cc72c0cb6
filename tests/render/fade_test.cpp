#include "render/fade.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(Fade, FollowsItsCurveWithinItsLimits) {
    struct Row {
        const char* what;
        Fade fade;
        float elapsed, duration, expected;
    };
    const Row rows[] = {
        {"a quarter at half time", {0, 0, 1, 1}, 0.25f, 0.5f, 0.25f},
        {"falling", {1, 1, 0, 1}, 0.25f, 0.5f, 0.75f},
        {"the end", {0, 0.9f, 1, 1}, 0.5f, 0.5f, 1},
        {"behind the end, rising", {0, 0.9f, 1, 1}, 5, 0.5f, 1},
        {"behind the end, falling", {1, 0.5f, 0, 1}, 5, 0.5f, 0},
        {"the limit of a faint colour", {0, 0.1f, 0.2f, 0.2f}, 5, 0.5f, 0.2f},
        {"a falling weight above a lowered limit", {0.9f, 0.9f, 0, 0.2f}, 0.25f, 0.5f, 0.2f},
        {"cut off: from where it stood", {0.4f, 0.4f, 1, 1}, 0.25f, 0.5f, 0.55f},
        {"close to the target", {0, 0.9995f, 1, 1}, 0.1f, 0.5f, 1},
        {"not yet close", {0, 0.5f, 0.501001f, 1}, 0, 0.5f, 0.5f},
        {"too soon", {0, 0.3f, 1, 1}, 0.00001f, 0.5f, 0.3f},
        {"too soon backwards", {0, 0.3f, 1, 1}, -0.00001f, 0.5f, 0.3f},
        {"soon enough", {0, 0, 1, 1}, 0.000011f, press_seconds, 1},
        {"a clock set back counts as far", {0, 0, 1, 1}, -0.25f, 0.5f, 0.25f},
        {"no duration", {0, 0, 1, 1}, 0, 0, 1},
        {"a duration below 0", {1, 1, 0, 1}, 3, -1, 0},
        {"no number as duration", {0, 0, 1, 1}, 3, NAN, 1},
        {"hardly any duration", {1, 1, 0, 1}, 3, 1e-38f, 0},
    };
    for (const Row& row : rows) {
        FadeTime time(row.elapsed, row.duration);
        EXPECT_FLOAT_EQ(next_weight(row.fade, time), row.expected) << row.what;
    }
}
