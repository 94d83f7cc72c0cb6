#pragma once

#include "layout/shape_watch.h"

/// The shape that the last mouse move ended on, or null. Outlives a run: the next one begins with it.
extern ShapeWatch s_hover_shape;
