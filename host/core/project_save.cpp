#include "host/core/project_save.h"

#include <algorithm>

#include "host/core/project_file.h"

namespace host {
namespace {

// So much text is written at a time: few calls, and it is still at hand for the processor.
constexpr std::size_t piece = 256u << 10;
constexpr std::size_t items_of_a_piece = 200;

}  // namespace

ProjectSave::ProjectSave(const std::string& path, std::size_t items)
    : m_path(path), m_file(path), m_text(std::min(items, items_of_a_piece)), m_most_text(piece) {
    m_ids.reserve(items);
}

void ProjectSave::take(const ProjectNode& modules) { close_part(m_back.gives(m_text.add_modules(modules), modules)); }

bool ProjectSave::is_there(const CGuid& parent) {
    if (parent.is_empty() || parent == m_last_parent) return true;
    if (!m_ids.contains(parent)) return false;
    m_last_parent = parent;
    return true;
}

// All are written, then all are read back: the processor keeps the instructions of one work at hand, not those of both.
void ProjectSave::take(std::span<const ProjectItem> items) {
    const std::size_t begin = m_text.text().size();
    m_ends.clear();
    for (const ProjectItem& item : items) {
        m_text.add_item(item);
        m_ends.push_back(m_text.text().size());
    }
    const std::string_view text = m_text.text();
    bool is_good = true;
    std::size_t at = begin;
    for (std::size_t i = 0; i < items.size(); ++i) {
        is_good = is_good && is_there(items[i].parent) && m_back.gives(text.substr(at, m_ends[i] - at), items[i]);
        at = m_ends[i];
    }
    close_part(is_good);
}

void ProjectSave::take_with_id(const ProjectItem& item) {
    take({&item, 1});
    m_comes_back = m_comes_back && take_id(item.id);
}

void ProjectSave::take(const ProjectAnimation& animation) {
    close_part(m_back.gives(m_text.add_animation(animation), animation));
}

void ProjectSave::close_part(bool is_good) {
    m_comes_back = m_comes_back && is_good;
    if (m_text.text().size() >= m_most_text) write_text();
}

void ProjectSave::write_text() {
    std::string error;
    if (!m_disk_error.empty() || m_file.write(m_text.text(), error)) {
        m_text.forget_text();
    } else if (m_file.is_begun()) {
        m_disk_error = error;
    } else {
        // Its folder may be made by one of the parts to come.
        m_most_text *= 2;
    }
}

// What can't be read again must not take the place of what can.
std::string ProjectSave::find_fault(std::string_view rest) const {
    if (!m_text.error().empty()) return m_text.error();
    if (m_comes_back || !m_disk_error.empty()) return m_disk_error;
    std::string text;
    std::string error;
    if (m_file.is_begun() && !m_file.read(text, error)) return error;
    ProjectDocument back;
    return parse_project(text.append(rest), "the new text", back, error) ? "it would not come back as it is" : error;
}

bool ProjectSave::finish(std::string& error) {
    const std::string_view rest = m_text.finish();
    error = find_fault(rest);
    if (error.empty() && m_file.write(rest, error) && m_file.take_place(OldFile::KEPT, error)) return true;
    error = m_path + ": not saved: " + error;
    return false;
}

bool write_project(const std::string& path, const ProjectDocument& document, std::string& error) {
    ProjectSave save(path, document.items.size());
    save.take(document.modules);
    for (const ProjectItem& item : document.items) save.take_with_id(item);
    for (const ProjectAnimation& animation : document.animations) save.take(animation);
    return save.finish(error);
}

}  // namespace host
