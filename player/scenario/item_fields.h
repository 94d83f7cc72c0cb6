#pragma once

#include "layout/shape.h"
#include "player/scenario/arguments.h"

namespace scenario {

/// The members of an item under their names, as far as they are values.
Value members_of(const CSimpleGUIDialog& dialog);
Value members_of(const CSimpleGUIShape& shape);

/// Stores each field that names a member straight into it; nothing of the layout follows. Other names are left to
/// whoever asks `fields` next.
void write_members(CSimpleGUIDialog& dialog, Fields& fields);
void write_members(CSimpleGUIShape& shape, Fields& fields);

/// The three pictures of a shape under the names that scenarios give them.
struct PictureSlot {
    const char* name;
    CMyComPtr<ITexture> CSimpleGUIShape::*member;
};
extern const std::array<PictureSlot, 3> picture_slots;
/// The file names of the pictures that there are, by these names.
Value pictures_of(const CSimpleGUIShape& shape);

}  // namespace scenario
