#pragma once

#include <span>

#include "player/scenario/scenario.h"

namespace scenario {

// The functions of `host`, a list for each subject. What each does stands in docs/scenarios.md.

std::span<const HostFunction> project_calls();
std::span<const HostFunction> item_calls();
std::span<const HostFunction> state_calls();
std::span<const HostFunction> frame_calls();
std::span<const HostFunction> animation_calls();
std::span<const HostFunction> font_calls();
std::span<const HostFunction> arithmetic_calls();
std::span<const HostFunction> comparing_calls();

}  // namespace scenario
