#include <SDL.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <optional>

#include "host/core/clock.h"
#include "host/core/project_disk.h"
#include "host/core/text_conversion.h"
#include "player/commands.h"
#include "player/notice.h"
#include "player/progress.h"
#include "player/scenario_library.h"

namespace player {

namespace {

using host::InputKind;

struct VideoGuard {
    ~VideoGuard() { SDL_Quit(); }
};

struct WindowDeleter {
    void operator()(SDL_Window* window) const { SDL_DestroyWindow(window); }
};
using Window = std::unique_ptr<SDL_Window, WindowDeleter>;

struct ButtonKinds {
    Uint8 button;
    InputKind down;
    InputKind up;
    InputKind twice;
};
constexpr ButtonKinds button_kinds[] = {
    {SDL_BUTTON_LEFT, InputKind::LEFT_DOWN, InputKind::LEFT_UP, InputKind::LEFT_DOUBLE},
    {SDL_BUTTON_RIGHT, InputKind::RIGHT_DOWN, InputKind::RIGHT_UP, InputKind::RIGHT_DOUBLE},
    {SDL_BUTTON_MIDDLE, InputKind::MIDDLE_DOWN, InputKind::MIDDLE_UP, InputKind::MIDDLE_DOUBLE},
};

std::optional<ButtonKinds> kinds_of(Uint8 button) {
    for (const ButtonKinds& kinds : button_kinds) {
        if (kinds.button == button) return kinds;
    }
    return std::nullopt;
}

// Without a display SDL falls back to a driver that shows nothing; only who asks for that one means it.
bool open_video(std::string& reason) {
    if (SDL_Init(SDL_INIT_VIDEO) != 0) {
        reason = SDL_GetError();
        return false;
    }
    const std::string driver = SDL_GetCurrentVideoDriver();
    if ((driver != "offscreen" && driver != "dummy") || SDL_getenv("SDL_VIDEODRIVER")) return true;
    SDL_Quit();
    reason = "there is no display";
    return false;
}

/// The window's loop: events in, frames out.
class Player {
public:
    /// `recorder` may be null.
    Player(Session& session, SDL_Window* window, const PlayOptions& options, scenario::Recorder* recorder)
        : m_session(session), m_window(window), m_options(options), m_recorder(recorder) {
        host::Engine& engine = session.engine();
        engine.scripts().on_error = [this](const std::string& line) { tell_trouble("script: ", line); };
        engine.on_message = [this](const std::string& text) { m_notice.show(text, Notice::MESSAGE); };
        engine.draw_overlay = [this](host::Device& device, const render_context& context) {
            m_notice.draw(m_session.engine(), device, context.width, context.height);
        };
    }

    void run() {
        begin();
        for (int frame = 0; !m_quit && (m_options.frames == 0 || frame < m_options.frames); ++frame) {
            if (m_recorder) step_clock();
            m_session.engine().frame(host::now());
            SDL_Event event;
            while (!m_quit && SDL_PollEvent(&event)) handle(event);
        }
        m_session.engine().stop_run();
    }

private:
    void tell_trouble(const char* where, const std::string& trouble) {
        std::cerr << "sgui: " << where << trouble << '\n';
        m_notice.show(trouble, Notice::TROUBLE);
    }

    void begin() {
        if (!m_session.begin_show()) tell_trouble("", "out of memory: the show is not whole");
        if (m_recorder) m_recorder->began(m_options.project, host::now());
    }

    // A recording must be able to say each moment exactly, so its clock goes in whole milliseconds and stands between
    // a frame and the events behind it.
    void step_clock() {
        const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - m_start;
        host::set_time(std::floor(elapsed.count()) / 1000.0);
    }

    void mouse(InputKind kind, int x, int y) {
        if (m_recorder) m_recorder->before_mouse();
        m_session.engine().mouse(kind, x, y);
        if (m_recorder) m_recorder->after_mouse(kind, x, y, host::now());
    }

    void resize(int width, int height) {
        m_session.engine().resize(width, height);
        if (m_recorder) m_recorder->resized(width, height, host::now());
    }

    void handle(const SDL_Event& event) {
        switch (event.type) {
            case SDL_QUIT:
                m_quit = true;
                break;
            case SDL_WINDOWEVENT:
                if (event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED) {
                    resize(event.window.data1, event.window.data2);
                }
                break;
            case SDL_KEYDOWN:
                if (event.key.keysym.sym == SDLK_F5) reopen();
                if (event.key.keysym.sym == SDLK_ESCAPE) m_quit = true;
                break;
            case SDL_MOUSEMOTION:
                // The tool only ever shows the hand, so the arrow comes back here, ahead of what the move finds.
                SDL_SetCursor(SDL_GetDefaultCursor());
                mouse(InputKind::MOVE, event.motion.x, event.motion.y);
                break;
            case SDL_MOUSEBUTTONDOWN:
            case SDL_MOUSEBUTTONUP:
                button(event.button);
                break;
            default:
                break;
        }
    }

    void button(const SDL_MouseButtonEvent& event) {
        const auto kinds = kinds_of(event.button);
        if (!kinds) return;
        const bool down = event.state == SDL_PRESSED;
        mouse(down ? kinds->down : kinds->up, event.x, event.y);
        if (down && event.clicks == 2) mouse(kinds->twice, event.x, event.y);
    }

    // What the author has just saved is seen at once; a file with a mistake leaves the show as it was.
    void reopen() {
        host::Engine& engine = m_session.engine();
        std::string error;
        if (engine.open_project(m_options.project, error)) {
            m_notice.show("Opened again: " + m_options.project, Notice::MESSAGE);
        } else {
            tell_trouble("", error);
        }
        int width = 0;
        int height = 0;
        SDL_GetWindowSize(m_window, &width, &height);
        engine.resize(width, height);
        begin();
    }

    Session& m_session;
    SDL_Window* m_window;
    const PlayOptions& m_options;
    scenario::Recorder* m_recorder;
    const std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    Notice m_notice;
    bool m_quit = false;
};

/// What is recorded goes to its file when the playing ends.
struct Recording {
    ScenarioLibrary library;
    std::unique_ptr<scenario::Recorder> recorder;

    bool begin(const std::string& file, host::Engine& engine, std::string& error) {
        std::error_code ignored;
        if (std::filesystem::exists(file, ignored)) {
            error = file + ": there is such a file already; nothing was changed";
            return false;
        }
        if (!library.load(error)) return false;
        recorder.reset(library.make_recorder(engine));
        host::use_settable_time(0.0);
        return true;
    }
    bool end(const std::string& file, std::string& error) const {
        const bool good = host::replace_file(file, recorder->text(host::now()), host::OldFile::GONE, error);
        if (!good) error = file + ": not written: " + error;
        return good;
    }
};

}  // namespace

int play(const PlayOptions& options) {
    std::string reason;
    if (!open_video(reason)) {
        return fail("no window can be opened (" + reason + "); \"sgui render\" makes pictures without one");
    }
    const VideoGuard video;
    const Window window(SDL_CreateWindow(("sgui - " + options.project).c_str(), SDL_WINDOWPOS_CENTERED,
                                         SDL_WINDOWPOS_CENTERED, options.size.width, options.size.height,
                                         SDL_WINDOW_RESIZABLE));
    if (!window) return fail(std::string("no window can be opened: ") + SDL_GetError());

    std::string error;
    const auto session = Session::start(host::SdlDevice::for_window(window.get()), options.module, error);
    if (!session) return fail(error);
    {
        const Progress progress("Opening " + options.project);
        if (!session->open(options.project, options.size, error)) return fail(error);
    }
    Recording recording;
    if (!options.record.empty() && !recording.begin(options.record, session->engine(), error)) return fail(error);
    Player(*session, window.get(), options, recording.recorder.get()).run();
    if (!options.record.empty() && !recording.end(options.record, error)) return fail(error);
    return EXIT_DONE;
}

}  // namespace player
