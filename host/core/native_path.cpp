#include "host/core/native_path.h"

#include <algorithm>

#include "host/core/text_conversion.h"

namespace host {

std::filesystem::path native_path(std::wstring_view path) {
    std::string bytes = to_utf8(path);
    std::replace(bytes.begin(), bytes.end(), '\\', '/');
    return std::filesystem::path(std::u8string(bytes.begin(), bytes.end()));
}

}  // namespace host
