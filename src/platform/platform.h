#pragma once

// What the module asks of the operating system. On Windows the system's own calls answer; elsewhere a table of
// functions that the host hands in, so that the module depends on no library for them.

#include "engine/rect.h"
#include "platform_types.h"

/// Every entry is set. The engine system library defines the table.
struct platform_functions {
    /// Shows the hand cursor until someone sets another one.
    void (*set_hand_cursor)();
    /// Where the cursor is on the screen, in pixels.
    CPoint (*cursor_position)();
};

/// Valid until the program ends.
ENGINE_API const platform_functions& get_platform_functions();

namespace platform {

void set_hand_cursor();
CPoint cursor_position();

}  // namespace platform
