#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "host/core/project_document.h"

namespace player {

/// Copies the pictures that lie outside of the project's folder into the folder of pictures beside it,
/// PROJECT_textures, and lets the document name the copies, so that the project can be carried elsewhere. No file is
/// overwritten: a name that another picture has gets a number. Gives how many there are beside it now; empty, with
/// `error` set, where one can't be copied.
std::optional<std::size_t> carry_pictures(host::ProjectDocument& document, const std::string& project,
                                          std::string& error);

}  // namespace player
