#include "platform/platform.h"

namespace platform {

void set_hand_cursor() { get_platform_functions().set_hand_cursor(); }

}  // namespace platform
