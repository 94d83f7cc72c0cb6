#pragma once

#include <string>

#include "host/system/engine.h"

namespace scenario {

/// Writes down what a person does in a playing window, as a scenario that does it again and checks that the same
/// scripts run and the same things show. It needs the module, so it comes from the scenario library.
class Recorder {
public:
    virtual ~Recorder() = default;

    /// The project was opened and its run has begun: from the file, in a view of the engine's size. `seconds` is what
    /// the clock tells, here and below; it must stand between a frame and the events behind it.
    virtual void began(const std::string& project, double seconds) = 0;
    /// An event, ahead of its way through the engine and behind it.
    virtual void before_mouse() = 0;
    virtual void after_mouse(host::InputKind kind, int x, int y, double seconds) = 0;
    virtual void resized(int width, int height, double seconds) = 0;
    /// The whole scenario so far, UTF-8.
    virtual std::string text(double seconds) = 0;
};

}  // namespace scenario

/// A recorder for the engine, whose first module is the one that the library is linked with. It listens to the runs of
/// scripts and must go ahead of the engine. The caller owns it.
extern "C" scenario::Recorder* sgui_make_recorder(host::Engine& engine);
