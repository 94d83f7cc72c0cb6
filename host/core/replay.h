#pragma once

#include <vector>

#include "host/core/recording_device.h"

namespace host {

/// Makes the recorded calls again on another device, between its begin_frame and end_frame. Pictures are read from
/// their files; the fonts of the recorded texts must still live.
void replay(const std::vector<DrawCall>& calls, Device& device);

}  // namespace host
