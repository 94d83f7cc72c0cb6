#include "platform/platform.h"

namespace platform {

void set_hand_cursor() { get_platform_functions().set_hand_cursor(); }

CPoint cursor_position() { return get_platform_functions().cursor_position(); }

}  // namespace platform
