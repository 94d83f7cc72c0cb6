#pragma once

#include "engine/services.h"

/// The folder beside a project that its fonts and pictures are published to, ending in a separator.
inline std::wstring published_folder(const tstringW& project_path) {
    return filefun::get_file_path(project_path.c_str()) + filefun::get_pure_filename(project_path.c_str(), false) +
           L"_textures/";
}
