#include "platform/input_file.h"

#include <cstdio>

namespace fs = std::filesystem;

bool platform::read_stamp(const NativePath& name, FileStamp& stamp) {
    const fs::path path(name);
    std::error_code problem;
    if (!fs::is_regular_file(path, problem)) return false;
    stamp.size = fs::file_size(path, problem);
    if (problem) return false;
    stamp.time = fs::last_write_time(path, problem);
    return !problem;
}

namespace {

std::FILE* file_of(std::intptr_t handle) { return reinterpret_cast<std::FILE*>(handle); }

}  // namespace

platform::InputFile::InputFile(const NativePath& path) : m_handle(0) {
    std::FILE* file = _wfopen(path.c_str(), L"rb");
    if (file) std::setvbuf(file, nullptr, _IONBF, 0);
    m_handle = reinterpret_cast<std::intptr_t>(file);
}

platform::InputFile::~InputFile() {
    if (is_open()) std::fclose(file_of(m_handle));
}

bool platform::InputFile::is_open() const { return m_handle != 0; }

std::size_t platform::InputFile::read(std::uint64_t position, unsigned char* target, std::size_t count) {
    if (position > static_cast<std::uint64_t>(INT64_MAX)) return 0;
    if (_fseeki64(file_of(m_handle), static_cast<long long>(position), SEEK_SET) != 0) return 0;
    return std::fread(target, 1, count, file_of(m_handle));
}
