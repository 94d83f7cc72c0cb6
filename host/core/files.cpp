#include <system_error>

#include "engine/services.h"
#include "host/core/folder_sink.h"
#include "host/core/native_path.h"

namespace {

// Both count on every system, for projects travel between systems.
constexpr wchar_t separators[] = L"/\\";

std::function<void(const std::wstring& path)> folder_sink;

std::wstring text_of(const wchar_t* path) { return path ? path : L""; }

// Length of the folder part with its separator.
std::size_t folder_length(const std::wstring& path) {
    const std::size_t last = path.find_last_of(separators);
    return last == std::wstring::npos ? 0 : last + 1;
}

}  // namespace

std::wstring filefun::get_pure_filename(const wchar_t* path, bool keep_extension) {
    std::wstring name = text_of(path);
    name.erase(0, folder_length(name));
    if (keep_extension) return name;
    const std::size_t dot = name.rfind(L'.');
    // A dot in front begins a hidden file's name, not an extension.
    if (dot != std::wstring::npos && dot > 0) name.resize(dot);
    return name;
}

std::wstring filefun::get_file_path(const wchar_t* path) {
    const std::wstring text = text_of(path);
    return text.substr(0, folder_length(text));
}

bool filefun::file_exist(const wchar_t* path) {
    std::error_code ignored;
    const auto status = std::filesystem::status(host::native_path(text_of(path)), ignored);
    return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

void host::set_folder_sink(std::function<void(const std::wstring& path)> sink) { folder_sink = std::move(sink); }

void filefun::create_path(const wchar_t* path) {
    if (folder_sink) folder_sink(text_of(path));
    std::error_code ignored;
    std::filesystem::create_directories(host::native_path(text_of(path)), ignored);
}
