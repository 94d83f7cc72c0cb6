#pragma once

#include <string>
#include <vector>

#include "host/core/project_document.h"

namespace player {

/// A font as a slot asks for it.
struct FontWish {
    std::wstring face;
    int weight = 400;
    bool italic = false;
};

/// A font slot as a project stores it.
struct StoredSlot {
    FontWish wish;
    /// Its size in pixels.
    unsigned size = 0;
    /// Name of the file that stands in beside the project; may be empty.
    std::wstring file;

    /// The engine's default font, which is not looked for.
    bool is_default() const { return wish.face == L"Default"; }
};

/// The slots in order, from 0; none where the project holds no setting. A slot that holds no face counts as default.
std::vector<StoredSlot> stored_slots(const host::ProjectDocument& document);
/// Changes what stored_slots gives as `file`.
void store_file(host::ProjectDocument& document, std::size_t slot, const std::wstring& file);

}  // namespace player
