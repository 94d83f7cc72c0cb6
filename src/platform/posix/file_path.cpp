#include <algorithm>

#include "engine/services.h"
#include "platform/platform.h"

platform::NativePath platform::file_path(const std::wstring& path) {
    std::string bytes;
    WideCharToMultiByte(path, bytes);
    std::replace(bytes.begin(), bytes.end(), '\\', '/');
    return bytes;
}
