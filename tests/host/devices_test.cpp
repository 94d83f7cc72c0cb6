#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <functional>
#include <limits>

#include "host/core/default_font.h"
#include "host/core/recording_device.h"
#include "host/core/sdl_device.h"

namespace {

using namespace host;

constexpr x3d_blend_desc blend(1, 5, 6, 1, 8, 2, 1, 0);
constexpr int width = 200;
constexpr int height = 120;
constexpr float none = std::numeric_limits<float>::quiet_NaN();

class Pixels : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(device); }
    /// Draws on black.
    void frame(const std::function<void()>& draw) {
        device->begin_frame(width, height);
        draw();
        device->end_frame();
        pixels = device->read_pixels();
        ASSERT_EQ(pixels.size(), std::size_t{width} * height);
    }
    std::uint32_t at(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)] & 0xFFFFFF; }
    /// The least rectangle around all pixels that aren't black; all zeros if there is none. `count`: how many.
    CRect changed(int& count) const {
        CRect box(width, height, 0, 0);
        count = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                if (at(x, y) == 0) continue;
                box = CRect(std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                            std::max(box.bottom, y + 1));
                ++count;
            }
        return count ? box : CRect();
    }
    CMyComPtr<IBaseFont> font(unsigned size) {
        CMyComPtr<IBaseFont> made(new IBaseFont(device.get()));
        made->create_font_from_file(default_font_path().c_str(), size);
        return made;
    }

    std::unique_ptr<SdlDevice> device = SdlDevice::in_memory();
    std::vector<std::uint32_t> pixels;
    const VEC4 white{1, 1, 1, 1};
};

/// Everything that draws, over the whole view.
void draw_all(SdlDevice& device, IBaseFont& font) {
    const VEC4 white(1, 1, 1, 1);
    device.draw_solid_rect(CRect(-900, -900, 900, 900), white, blend);
    device.draw_pline_with_pattern({{-500, 20}, {500, 20}}, white, 3, ~0ul, 1, blend);
    font.render_text_in_screen(5, 5, white, L"text", FONT_LEFT_TOP);
    const PaintedPoint corners[] = {{-500, -500, white}, {900, -500, white}, {-500, 900, white}};
    device.draw_triangles(corners);
}

}  // namespace

TEST_F(Pixels, AViewportClipsWhateverIsDrawn) {
    const struct {
        x3d_viewport viewport;
        CRect seen;
    } cases[] = {
        {{10, 20, 30, 40}, {10, 20, 40, 60}},
        {{-10, -20, 30, 40}, {0, 0, 20, 20}},
        {{180, 110, 3e9f, 3e9f}, {180, 110, width, height}},
        {{10, 20, 0, 40}, {}},
        {{10, 20, 40, 0}, {}},
        {{50, 50, -20, -20}, {}},
        {{width, 0, 10, 10}, {}},
        {{-50, 0, 50, 50}, {}},
        {{none, 0, none, 10}, {}},
    };
    const auto font_used = font(20);
    for (const auto& row : cases) {
        frame([&] {
            device->set_view_port(row.viewport);
            draw_all(*device, *font_used);
        });
        int count = 0;
        const CRect box = changed(count);
        EXPECT_EQ(box, row.seen) << row.viewport.x << ", " << row.viewport.y << ": " << box.left << " " << box.top
                                 << " " << box.right << " " << box.bottom;
        EXPECT_EQ(count, row.seen.Width() * row.seen.Height());
    }
}

TEST_F(Pixels, TintAndAlphaMixWithWhatStandsThere) {
    const std::string file = testing::TempDir() + "sgui_tint.png";
    frame([&] { device->draw_solid_rect(CRect(0, 0, width, height), {1, 0.5f, 0.25f, 1}, blend); });
    std::string error;
    ASSERT_TRUE(device->save_png(file, error)) << error;
    const auto picture = device->make_texture(std::wstring(file.begin(), file.end()));
    std::filesystem::remove(file);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, unsigned{width});
    const struct {
        VEC4 tint;
        std::uint32_t solid, textured;
    } cases[] = {
        {{1, 1, 1, 1}, 0xFFFFFF, 0xFF8040},     {{1, 0.5f, 0, 1}, 0xFF8000, 0xFF4000},
        {{1, 1, 1, 0.5f}, 0x8080FF, 0x8040A0},  {{1, 1, 1, 0}, 0x0000FF, 0x0000FF},
        {{9, -1, none, 1}, 0xFF0000, 0xFF0000},
    };
    for (const auto& row : cases) {
        frame([&] {
            device->draw_solid_rect(CRect(0, 0, width, height), {0, 0, 1, 1}, blend);
            device->draw_solid_rect(CRect(0, 0, 50, 50), row.tint, blend);
            device->draw_texture_to_rect(CRect(50, 0, 100, 50), picture, row.tint, blend, 0, X3D_ZFUNC_ALWAYS);
        });
        const std::pair<std::uint32_t, std::uint32_t> pairs[] = {{at(20, 20), row.solid}, {at(70, 20), row.textured}};
        for (const auto& [found, expected] : pairs)
            for (int shift : {0, 8, 16})
                EXPECT_NEAR(int(found >> shift & 255), int(expected >> shift & 255), 2) << std::hex << found;
        EXPECT_EQ(at(120, 20), 0x0000FFu);
    }
}

TEST_F(Pixels, ABitOfThePatternStandsForAPixelOfTheLine) {
    constexpr unsigned long pattern = 0xF0F0A5A1;
    frame([&] { device->draw_pline_with_pattern({{150, 5}, {20, 5}, {20, 90}}, white, 1, pattern, 1, blend); });
    for (int along = 0; along < 130 + 85; ++along) {
        const bool lit = along < 130 ? at(150 - along, 5) != 0 : at(20, 5 + along - 130) != 0;
        EXPECT_EQ(lit, (pattern >> along % 32 & 1) != 0) << along;
    }
}

TEST_F(Pixels, ATextLiesWhereItsAnchorSays) {
    constexpr int size = 40;
    const auto used = font(size);
    CRect boxes[12];
    for (int position = 0; position < 12; ++position) {
        frame([&] {
            device->set_view_port({10, 10, width, height});
            used->render_text_in_screen(90, 50, white, L"HIH", static_cast<font_org_position>(position));
        });
        int count = 0;
        boxes[position] = changed(count);
        ASSERT_GT(count, 100) << position;
    }
    const int slack = size / 6;
    const CPoint anchor(100, 60);
    for (int row = 0; row < 4; ++row) {
        const CRect &left = boxes[row], &center = boxes[row + 4], &right = boxes[row + 8];
        EXPECT_TRUE(left.left >= anchor.x && left.left <= anchor.x + slack) << row;
        EXPECT_NEAR((center.left + center.right) / 2, anchor.x, 2) << row;
        EXPECT_TRUE(right.right <= anchor.x && right.right >= anchor.x - slack) << row;
    }
    for (int column = 0; column < 12; column += 4) {
        const CRect &top = boxes[column], &base = boxes[column + 1], &middle = boxes[column + 2];
        const CRect& bottom = boxes[column + 3];
        EXPECT_TRUE(top.top >= anchor.y && top.top <= anchor.y + size / 2) << column;
        EXPECT_NEAR(base.bottom, anchor.y, 1) << "capitals stand on the baseline";
        EXPECT_TRUE(bottom.bottom <= anchor.y && bottom.bottom >= anchor.y - size / 2) << column;
        EXPECT_NEAR(middle.top * 2, top.top + bottom.top, 2) << column;
    }
}

TEST_F(Pixels, AFrameThatStaysTheSameUploadsNothing) {
    const auto used = font(20);
    const auto draw = [&] {
        draw_all(*device, *used);
        used->render_text_in_screen(5, 40, white, L"欢迎\nsecond line", FONT_LEFT_TOP);
    };
    frame(draw);
    const auto first = pixels;
    const std::uint64_t uploads = device->uploads();
    EXPECT_GT(uploads, 0u);
    for (int again = 0; again < 3; ++again) frame(draw);
    EXPECT_EQ(device->uploads(), uploads);
    EXPECT_EQ(pixels, first);
}

TEST(RecordingDevice, WritesDownTheCallsInOrderWithTheViewportInForce) {
    RecordingDevice device;
    for (int frame = 0; frame < 2; ++frame) {
        device.begin_frame(800, 600);
        device.draw_solid_rect(CRect(1, 2, 3, 4), {0, 1, 0, 1}, blend);
        device.set_view_port({10, 20, 30, 40});
        device.draw_pline_with_pattern({{1, 1}, {2, 2}}, {}, 2, 0xF0, 1.5f, blend);
        device.draw_texture_to_rect({}, {}, {}, blend, 0.5f, X3D_ZFUNC_ALWAYS);
        device.end_frame();
    }
    const auto& calls = device.calls();
    ASSERT_EQ(calls.size(), 4u);
    const DrawCall::Op expected[] = {DrawCall::RECT, DrawCall::VIEWPORT, DrawCall::LINE, DrawCall::TEXTURE};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(calls[i].op, expected[i]);
        EXPECT_EQ(calls[i].viewport,
                  (i == 0 ? std::array<float, 4>{0, 0, 800, 600} : std::array<float, 4>{10, 20, 30, 40}));
    }
    EXPECT_EQ(calls[0].rect, CRect(1, 2, 3, 4));
    EXPECT_EQ(calls[0].blend, blend.members);
    EXPECT_EQ(calls[2].pattern, 0xF0u);
    EXPECT_EQ(calls[3].text, L"");
}
