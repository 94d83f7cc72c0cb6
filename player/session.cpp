#include "player/session.h"

#include <charconv>
#include <filesystem>
#include <iostream>

#include "host/core/default_font.h"

namespace player {

namespace {

namespace fs = std::filesystem;

constexpr int largest_size = 16384;

// Beside the program, as the build lays it, and where an installation puts libraries.
std::string module_beside_program() {
    std::error_code ignored;
    const fs::path folder = fs::read_symlink("/proc/self/exe", ignored).parent_path();
    const fs::path name = "libsimple_gui.so";
    for (const char* place : {"../lib", ".", "../lib/x86_64-linux-gnu", "../lib/aarch64-linux-gnu", "../lib64"}) {
        const fs::path candidate = folder / place / name;
        if (fs::exists(candidate, ignored)) return candidate.lexically_normal().string();
    }
    return name.string();
}

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
    if (!engine.load_module(module_path.empty() ? module_beside_program() : module_path, error)) return nullptr;
    return session;
}

bool Session::open(const std::string& path, ViewSize size, std::string& error) {
    m_engine->new_project(size.width, size.height);
    if (!m_engine->open_project(path, error)) return false;
    for (const std::string& warning : m_engine->warnings()) std::cerr << "sgui: warning: " << warning << '\n';
    return true;
}

}  // namespace player
