#pragma once

#include "engine/services.h"

/// The present time of the engine's clock, in seconds.
inline float present_seconds() {
    return static_cast<float>(static_cast<double>(time_guard::get_curr_time_async()) /
                              static_cast<double>(time_guard::s_freq));
}
