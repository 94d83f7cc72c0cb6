#include "player/session.h"

#include <charconv>
#include <iostream>

#include "engine/numbers.h"
#include "host/core/clock.h"
#include "host/core/default_font.h"
#include "host/core/legacy_file.h"
#include "host/core/memory_watch.h"
#include "host/core/project_file.h"
#include "player/font_warnings.h"
#include "player/libraries.h"

namespace player {

namespace {

constexpr int largest_size = 16384;

bool parse_pixels(std::string_view text, int& value) {
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), value);
    return problem == std::errc() && end == text.data() + text.size() && value >= 1 && value <= largest_size;
}

}  // namespace

bool parse_size(const std::string& text, ViewSize& size) {
    const std::size_t cross = text.find('x');
    if (cross == std::string::npos) return false;
    const std::string_view view = text;
    return parse_pixels(view.substr(0, cross), size.width) && parse_pixels(view.substr(cross + 1), size.height);
}

std::string advice_on(const std::string& path) {
    return host::is_legacy_file(path) ? "; \"sgui import\" brings such a project over" : "";
}

int fail(const std::string& reason) {
    std::cerr << "sgui: " << reason << '\n';
    return EXIT_FAILED;
}

Session::Session(std::unique_ptr<host::SdlDevice> device)
    : m_device(std::move(device)), m_engine(std::make_unique<host::Engine>(*m_device, host::default_font_path())) {}

Session::~Session() { m_engine->close(); }

std::unique_ptr<Session> Session::start(std::unique_ptr<host::SdlDevice> device, const std::string& module_path,
                                        std::string& error) {
    if (!device) {
        error = "no renderer could be made";
        return nullptr;
    }
    std::unique_ptr<Session> session(new Session(std::move(device)));
    host::Engine& engine = session->engine();
    if (!engine.load_module(module_path.empty() ? library_beside_program("libsimple_gui.so") : module_path, error))
        return nullptr;
    return session;
}

bool Session::open(const std::string& path, ViewSize size, std::string& error) {
    const FontWarnings fonts;
    if (!m_engine->new_project(size.width, size.height)) return host::out_of_memory(path, error);
    host::ProjectDocument document;
    if (!host::read_project(path, document, error) || !m_engine->open_document(document, path, error)) {
        error += advice_on(path);
        return false;
    }
    for (const std::string& warning : fonts.all(m_engine->project_file_path, stored_slots(document)))
        std::cerr << "sgui: warning: " << warning << '\n';
    for (const std::string& warning : m_engine->warnings()) std::cerr << "sgui: warning: " << warning << '\n';
    return true;
}

// A GUI that is hidden stays so in this one state of the engine; a fresh project begins hidden and is shown by the
// first frame in any other.
bool Session::begin_show() {
    m_engine->m_system_state = 0;
    const bool runs = m_engine->start_run();
    const bool whole = m_engine->frame(host::now());
    m_engine->m_system_state = SYSTEM_STATE_FOUR;
    return runs && whole;
}

}  // namespace player
