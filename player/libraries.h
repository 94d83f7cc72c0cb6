#pragma once

#include <string>

namespace player {

/// The path of a library that is installed with the program; the plain name where it isn't beside it, for the system
/// to look up.
std::string library_beside_program(const std::string& name);

}  // namespace player
