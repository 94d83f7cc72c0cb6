#include "platform/platform.h"

std::filesystem::path platform::file_path(const std::wstring& path) { return path; }
