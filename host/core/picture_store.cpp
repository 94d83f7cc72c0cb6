#include "host/core/picture_store.h"

#include <system_error>

#include "host/core/native_path.h"

namespace host {
namespace {

constexpr int frames_kept = 300;

}  // namespace

std::shared_ptr<const Picture> PictureStore::get(const std::wstring& path) {
    const std::filesystem::path file = native_path(path);
    std::error_code error;
    const auto written = std::filesystem::last_write_time(file, error);
    if (error) return nullptr;
    // The time alone may stand still when a file is written twice within the file system's step.
    const auto length = std::filesystem::file_size(file, error);
    if (error) return nullptr;
    const std::string key = file.lexically_normal().string();
    const auto known = m_entries.find(key);
    if (known != m_entries.end() && known->second.written == written && known->second.length == length) {
        return known->second.picture;
    }
    std::shared_ptr<const Picture> picture = read_picture(file);
    if (picture) {
        m_entries.insert_or_assign(key, Entry{written, length, picture, 0});
    } else {
        m_entries.erase(key);
    }
    return picture;
}

void PictureStore::next_frame() {
    for (auto& [path, entry] : m_entries) {
        entry.frames_unheld = entry.picture.use_count() == 1 ? entry.frames_unheld + 1 : 0;
    }
    std::erase_if(m_entries, [](const auto& row) { return row.second.frames_unheld > frames_kept; });
}

void PictureStore::forget_unused() {
    std::erase_if(m_entries, [](const auto& row) { return row.second.picture.use_count() == 1; });
}

}  // namespace host
