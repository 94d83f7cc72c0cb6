#pragma once

#include "engine/text.h"
#include "platform_types.h"

/// Face name and file name of the engine's default font.
constexpr const wchar_t* default_font_name = L"Default";

/// The face name, up to its zero or the end of the field.
tstringW face_name(const LOGFONTW& record);
/// Stores a face name, cut to what the field holds and ended with zeros.
void set_face_name(LOGFONTW& record, const tstringW& name);
/// The size in pixels that a record asks for: the absolute value of its height, also of the smallest integer.
unsigned font_size(const LOGFONTW& record);
