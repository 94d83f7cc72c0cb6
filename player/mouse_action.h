#pragma once

#include <string>
#include <vector>

#include "host/system/input.h"

namespace host {
class Engine;
}

namespace player {

/// What a mouse does at a place in the view: an event, or a click, which is a move, a press and a release.
struct MouseAction {
    std::vector<host::InputKind> events;
    int x = 0;
    int y = 0;
};

/// From text like "move:100,200", "click:640,360", "left_down:5,5". False and `error` set for anything else.
bool parse_mouse_action(const std::string& text, MouseAction& action, std::string& error);

}  // namespace player
