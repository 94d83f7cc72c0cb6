#pragma once

// A project on its way into its file. Each part is read back from its text as soon as that stands, and written beside
// the old file as soon as its folder is there, so that no project need be held as a whole. The old file goes once all
// of it has come back.

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "host/core/id_set.h"
#include "host/core/project_disk.h"
#include "host/core/project_read_back.h"
#include "host/core/project_write.h"

namespace host {

class ProjectSave final : public ProjectParts {
public:
    /// For about so many items.
    ProjectSave(const std::string& path, std::size_t items);
    void add_modules(ProjectNode& modules) override { take(modules); }
    void add_items(std::span<ProjectItem> items) override { take(items); }
    void add_animation(ProjectAnimation& animation) override { take(animation); }
    bool take_id(const CGuid& id) override { return m_ids.insert(id); }
    /// The same, for parts that others keep.
    void take(const ProjectNode& modules);
    void take(std::span<const ProjectItem> items);
    void take(const ProjectAnimation& animation);
    /// Takes the identifier too.
    void take_with_id(const ProjectItem& item);
    /// Once, behind the last part. As write_project.
    bool finish(std::string& error);

private:
    /// Whether an item below that one has a place in the scene.
    bool is_there(const CGuid& parent);
    /// Whether the part came back and has its place; once it has not, nothing is saved.
    void close_part(bool is_good);
    void write_text();
    /// Why the text must not take the place of the old one; empty if it may.
    std::string find_fault(std::string_view rest) const;

    std::string m_path;
    NewFile m_file;
    ProjectText m_text;
    std::size_t m_most_text;
    ProjectReadBack m_back;
    // Where the text of each item of those in work ends.
    std::vector<std::size_t> m_ends;
    IdSet m_ids;
    // Most items have the parent of the one before.
    CGuid m_last_parent;
    bool m_comes_back = true;
    // What failed on the disk; empty if nothing did.
    std::string m_disk_error;
};

}  // namespace host
