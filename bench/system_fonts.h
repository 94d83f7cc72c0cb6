#pragma once

#include <string>
#include <vector>

#include "host/core/font_files.h"

namespace bench {

/// Those of this machine, so figures of two machines can't be compared.
inline const std::vector<std::string>& system_fonts() {
    static const std::vector<std::string> paths = [] {
        std::vector<host::FontFile> files;
        host::list_font_files(files);
        std::vector<std::string> all;
        for (const host::FontFile& file : files) all.push_back(file.path);
        return all;
    }();
    return paths;
}

}  // namespace bench
