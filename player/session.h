#pragma once

// The player: a command line over the reference engine. Each command stands in a file of its own; this one opens what
// most of them need. Includes the host; the module is loaded at run time, as any engine would load it.

#include <memory>
#include <string>

#include "host/core/sdl_device.h"
#include "host/system/engine.h"

namespace player {

/// Exit codes of the program.
enum Exit : int { EXIT_DONE = 0, EXIT_FAILED = 1, EXIT_USAGE = 2 };

/// A view size in pixels.
struct ViewSize {
    int width = 1280;
    int height = 720;
};
/// From text like "1280x720"; false for anything else and for sizes beyond 1 to 16384.
bool parse_size(const std::string& text, ViewSize& size);

/// What can be done about a project that can't be read, to stand behind the error; empty for nothing.
std::string advice_on(const std::string& path);

/// One line on the standard error, ahead of an exit with EXIT_FAILED.
int fail(const std::string& reason);

/// An engine with the module in it, on a device that it outlives.
class Session {
public:
    /// Makes the engine and loads the module. `module_path` may be empty: the one installed beside the program. Null
    /// and `error` set if that fails.
    static std::unique_ptr<Session> start(std::unique_ptr<host::SdlDevice> device, const std::string& module_path,
                                          std::string& error);
    ~Session();

    host::Engine& engine() { return *m_engine; }
    host::SdlDevice& device() { return *m_device; }
    /// Makes an empty project of that size and opens the file in it. Warnings go to the standard error.
    bool open(const std::string& path, ViewSize size, std::string& error);
    /// Starts the run and draws its first frame, which shows the GUI; from then on scripts can hide it.
    /// False where memory ran out: it does not run, or a part of the frame is missing.
    bool begin_show();

private:
    explicit Session(std::unique_ptr<host::SdlDevice> device);
    std::unique_ptr<host::SdlDevice> m_device;
    std::unique_ptr<host::Engine> m_engine;
};

}  // namespace player
