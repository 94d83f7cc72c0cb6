#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <new>
#include <utility>

#include "host/core/clock.h"
#include "host/core/default_font.h"
#include "host/core/picture_file.h"
#include "host/core/picture_scaling.h"
#include "host/core/text_conversion.h"
#include "player/commands.h"
#include "player/progress.h"

namespace player {

namespace {

constexpr int most_columns = 4;
constexpr int widest_cell = 480;
constexpr double frame_seconds = 1.0 / 60.0;
constexpr double most_steps = 600.0;
constexpr int gap = 8;
constexpr std::uint32_t gap_color = 0xFF101418;
constexpr int label_height = 22;
const VEC4 label_background(0.05f, 0.07f, 0.10f, 0.80f);
const VEC4 label_color(1.0f, 1.0f, 1.0f, 1.0f);
constexpr x3d_blend_desc by_alpha(1, 5, 6, 1, 8, 2, 1, 0);

/// The grid of pictures: where each lies and how large it is, in pixels of the sheet.
struct Grid {
    int columns;
    int rows;
    int cell_width;
    int cell_height;

    Grid(int frames, ViewSize view)
        : columns(std::min(frames, most_columns)),
          rows((frames + columns - 1) / columns),
          cell_width(std::min(view.width, widest_cell)),
          cell_height(std::max(view.height * cell_width / view.width, 1)) {}

    int width() const { return columns * (cell_width + gap) + gap; }
    int height() const { return rows * (cell_height + gap) + gap; }
    int left(int frame) const { return gap + frame % columns * (cell_width + gap); }
    int top(int frame) const { return gap + frame / columns * (cell_height + gap); }
};

std::string text_of(double seconds) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), seconds, std::chars_format::fixed, 2);
    return std::string(digits.data(), end.ptr) + " s";
}

/// Draws one moment after the other and lays them on the sheet.
class Sheet {
public:
    Sheet(Session& session, const SheetOptions& options)
        : m_session(session), m_view(options.size), m_grid(options.frames, options.size) {
        m_pixels.assign(static_cast<std::size_t>(m_grid.width()) * static_cast<std::size_t>(m_grid.height()),
                        gap_color);
        // Written in the view and shrunk with it, so it is larger there.
        m_enlarged = static_cast<double>(m_view.width) / m_grid.cell_width;
        m_font = new IBaseFont(&session.device());
        m_font->create_font_from_file(host::default_font_path().c_str(), static_cast<unsigned>(scaled(16)));
        session.engine().draw_overlay = [this](host::Device& device, const render_context&) { draw_label(device); };
    }
    ~Sheet() { m_session.engine().draw_overlay = {}; }
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

    void add(int frame, double seconds) {
        m_label = from_utf8(text_of(seconds));
        host::set_time(seconds);
        const bool is_whole = m_session.engine().frame(seconds);
        const std::vector<std::uint32_t> pixels = m_session.device().read_pixels();
        if (!is_whole || pixels.empty()) throw std::bad_alloc();
        host::Picture view;
        view.argb = pixels;
        view.width = static_cast<unsigned>(m_view.width);
        view.height = static_cast<unsigned>(m_view.height);
        const CRect whole(0, 0, m_grid.cell_width, m_grid.cell_height);
        lay(host::scaled_pixels(view, m_grid.cell_width, m_grid.cell_height, whole), frame);
    }

    bool write(const std::string& path, std::string& error) {
        return host::write_png(path, m_pixels, m_grid.width(), error);
    }

private:
    int scaled(int pixels) const { return static_cast<int>(std::lround(pixels * m_enlarged)); }

    void draw_label(host::Device& device) {
        const int line = scaled(label_height);
        device.draw_solid_rect(CRect(0, m_view.height - line, scaled(72), m_view.height), label_background, by_alpha);
        m_font->render_text_in_screen(scaled(8), m_view.height - line / 2, label_color, m_label.c_str(),
                                      FONT_LEFT_MIDDLE);
    }

    void lay(const std::vector<std::uint32_t>& cell, int frame) {
        for (int row = 0; row < m_grid.cell_height; ++row) {
            std::copy_n(
                cell.begin() + std::ptrdiff_t{row} * m_grid.cell_width, m_grid.cell_width,
                m_pixels.begin() + std::ptrdiff_t{m_grid.top(frame) + row} * m_grid.width() + m_grid.left(frame));
        }
    }

    Session& m_session;
    ViewSize m_view;
    Grid m_grid;
    double m_enlarged = 1.0;
    CMyComPtr<IBaseFont> m_font;
    std::wstring m_label;
    std::vector<std::uint32_t> m_pixels;
};

// Pictures of buttons take their weights from the frames that were drawn, so there are some between two moments.
void play_up_to(host::Engine& engine, host::Animation& animation, double seconds, double step) {
    const auto scene = std::exchange(engine.draw_scene, {});
    for (double at = host::now() + step; at < seconds; at += step) {
        host::set_time(at);
        animation.seek(at);
        if (!engine.frame(at)) throw std::bad_alloc();
    }
    engine.draw_scene = scene;
    animation.seek(seconds);
}

std::string unknown_animation(const SheetOptions& options, const host::Animations& animations) {
    std::string names;
    for (const auto& known : animations.all()) names += (names.empty() ? "" : ", ") + to_utf8(known->name());
    return options.project + ": there is no animation \"" + options.animation + "\" (" +
           (names.empty() ? "the project has none" : "there are: " + names) + ")";
}

}  // namespace

int sheet(const SheetOptions& options) {
    host::use_settable_time(0.0);
    const Progress progress("Drawing " + options.project);
    std::string error;
    const auto session = Session::start(host::SdlDevice::in_memory(), options.module, error);
    if (!session || !session->open(options.project, options.size, error)) return fail(error);
    host::Engine& engine = session->engine();
    host::Animation* animation = engine.animations().find(from_utf8(options.animation));
    if (!animation) return fail(unknown_animation(options, engine.animations()));

    // Seen as it is played, but alone.
    for (const auto& other : engine.animations().all()) other->starts_by_itself = false;
    animation->seek(0.0);
    if (!session->begin_show()) return fail("out of memory");
    Sheet drawn(*session, options);
    const double length = std::isfinite(animation->info().length) ? std::max(animation->info().length, 0.0f) : 0.0;
    for (int frame = 0; frame < options.frames; ++frame) {
        const double seconds = options.frames > 1 ? length * frame / (options.frames - 1) : 0.0;
        play_up_to(engine, *animation, seconds, std::max(frame_seconds, length / most_steps));
        drawn.add(frame, seconds);
    }
    return drawn.write(options.out, error) ? EXIT_DONE : fail(error);
}

}  // namespace player
