#pragma once

#include "module/manager.h"

/// Makes the animations below "Timebar". Their items must be there already: the keys are converted in their frames.
/// Nothing happens in an engine without animations.
void import_legacy_timebar(CSimpleGUIManager& manager, CPakNode& timebar);
