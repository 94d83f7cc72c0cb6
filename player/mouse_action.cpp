#include "player/mouse_action.h"

#include <charconv>
#include <string_view>

namespace player {

namespace {

using host::InputKind;

struct NamedAction {
    std::string_view name;
    std::vector<InputKind> events;
};

const NamedAction named_actions[] = {
    {"move", {InputKind::MOVE}},
    {"click", {InputKind::MOVE, InputKind::LEFT_DOWN, InputKind::LEFT_UP}},
    {"left_down", {InputKind::LEFT_DOWN}},
    {"left_up", {InputKind::LEFT_UP}},
    {"right_down", {InputKind::RIGHT_DOWN}},
    {"right_up", {InputKind::RIGHT_UP}},
    {"middle_down", {InputKind::MIDDLE_DOWN}},
    {"middle_up", {InputKind::MIDDLE_UP}},
};

bool parse_number(std::string_view text, int& value) {
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), value);
    return problem == std::errc() && end == text.data() + text.size();
}

}  // namespace

bool parse_mouse_action(const std::string& text, MouseAction& action, std::string& error) {
    const std::string_view view = text;
    const std::size_t colon = view.find(':');
    const std::size_t comma = view.find(',', colon);
    if (colon != std::string_view::npos && comma != std::string_view::npos) {
        for (const NamedAction& named : named_actions) {
            if (named.name != view.substr(0, colon)) continue;
            action.events = named.events;
            if (parse_number(view.substr(colon + 1, comma - colon - 1), action.x) &&
                parse_number(view.substr(comma + 1), action.y)) {
                return true;
            }
        }
    }
    error = "\"" + text + "\" is no mouse action: expected EVENT:X,Y with EVENT one of";
    for (const NamedAction& named : named_actions) error += " " + std::string(named.name);
    return false;
}

}  // namespace player
