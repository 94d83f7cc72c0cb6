#include "host/core/project_save.h"

#include "host/core/project_disk.h"
#include "host/core/project_file.h"

namespace host {

void ProjectSave::take(const ProjectNode& modules) {
    if (!m_back.gives(m_text.add_modules(modules), modules)) m_comes_back = false;
}

void ProjectSave::take(const ProjectItem& item) {
    const bool has_place = item.parent.is_empty() || m_ids.contains(item.parent);
    if (!m_back.gives(m_text.add_item(item), item) || !has_place || !m_ids.insert(item.id).second) m_comes_back = false;
}

void ProjectSave::take(const ProjectAnimation& animation) {
    if (!m_back.gives(m_text.add_animation(animation), animation)) m_comes_back = false;
}

// What can't be read again must not take the place of what can.
std::string ProjectSave::find_fault(std::string_view text) const {
    if (!m_text.error().empty()) return m_text.error();
    if (m_comes_back) return {};
    ProjectDocument back;
    std::string error;
    return parse_project(text, "the new text", back, error) ? "it would not come back as it is" : error;
}

bool ProjectSave::write(const std::string& path, std::string& error) {
    const std::string_view text = m_text.finish();
    error = find_fault(text);
    if (error.empty() && replace_file(path, text, OldFile::KEPT, error)) return true;
    error = path + ": not saved: " + error;
    return false;
}

bool write_project(const std::string& path, const ProjectDocument& document, std::string& error) {
    ProjectSave save(document.items.size());
    save.take(document.modules);
    for (const ProjectItem& item : document.items) save.take(item);
    for (const ProjectAnimation& animation : document.animations) save.take(animation);
    return save.write(path, error);
}

}  // namespace host
