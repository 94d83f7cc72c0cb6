#pragma once

#include <filesystem>
#include <string_view>

namespace host {

/// The path as this system writes it. Projects made on another system use '\\'; it is read as a separator everywhere.
std::filesystem::path native_path(std::wstring_view path);

}  // namespace host
