#include "player/scenario/events.h"

namespace scenario {

namespace {

using host::InputKind;

constexpr struct {
    const char* name;
    InputKind kind;
} events[] = {
    {"left_down", InputKind::LEFT_DOWN}, {"left_up", InputKind::LEFT_UP},         {"right_down", InputKind::RIGHT_DOWN},
    {"right_up", InputKind::RIGHT_UP},   {"middle_down", InputKind::MIDDLE_DOWN}, {"middle_up", InputKind::MIDDLE_UP},
    {"move", InputKind::MOVE},
};

}  // namespace

std::optional<InputKind> event_kind(std::string_view name) {
    for (const auto& event : events)
        if (name == event.name) return event.kind;
    return std::nullopt;
}

const char* event_name(InputKind kind) {
    for (const auto& event : events)
        if (kind == event.kind) return event.name;
    return nullptr;
}

}  // namespace scenario
