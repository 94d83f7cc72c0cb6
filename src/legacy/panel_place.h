#pragma once

#include "legacy/rects.h"
#include "legacy/values.h"

/// What "panel_pos" says, of a panel or of a key.
PanelPlace read_panel_place(CPakNode& panel_pos);
