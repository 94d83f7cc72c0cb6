#pragma once

// A project on its way into its file. Each part is read back from its text as soon as that stands, so that no project
// need be held as a whole, and nothing is written before all of it has come back.

#include <string>

#include "host/core/id_set.h"
#include "host/core/project_plain.h"
#include "host/core/project_write.h"

namespace host {

class ProjectSave final : public ProjectParts {
public:
    /// For about so many items.
    explicit ProjectSave(std::size_t items) : m_text(items) {}
    void add_modules(ProjectNode& modules) override { take(modules); }
    void add_item(ProjectItem& item) override { take(item); }
    void add_animation(ProjectAnimation& animation) override { take(animation); }
    /// The same, for parts that others keep.
    void take(const ProjectNode& modules);
    void take(const ProjectItem& item);
    void take(const ProjectAnimation& animation);
    /// Once, behind the last part. As write_project.
    bool write(const std::string& path, std::string& error);

private:
    /// Why the text must not be written; empty if it may.
    std::string find_fault(std::string_view text) const;

    ProjectText m_text;
    ProjectReadBack m_back;
    IdSet m_ids;
    bool m_comes_back = true;
};

}  // namespace host
