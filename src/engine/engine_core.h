#pragma once

// The engine core library, as far as the module asks for it: texts, vectors, identifiers, counted objects, items, both
// project trees, fonts, textures, drawing, files, time and log. Declarations and plain values only: what an engine
// does behind them is its own, and nothing here knows a host. The engine system library builds on it; this header
// includes nothing but the standard library and the platform's records.

#include "engine/base_item.h"
#include "engine/counted.h"
#include "engine/device.h"
#include "engine/font.h"
#include "engine/guid.h"
#include "engine/legacy_tree.h"
#include "engine/project_tree.h"
#include "engine/property.h"
#include "engine/rect.h"
#include "engine/services.h"
#include "engine/text.h"
#include "engine/texture.h"
#include "engine/vectors.h"
