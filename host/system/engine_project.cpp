// How the engine opens and saves projects.

#include <algorithm>
#include <set>

#include "host/core/item_store.h"
#include "host/core/project_file.h"
#include "host/core/text_conversion.h"
#include "host/system/engine.h"

namespace host {

void Engine::clean_project() {
    end_run();
    m_selection.select({});
    m_scene.clear();
    m_warnings.clear();
    look = first_look();
    for (const auto& library : m_modules) library->module().on_clean_project();
}

void Engine::new_project(int width, int height) {
    m_client = {0, 0, std::max(width, 0), std::max(height, 0)};
    project_file_path.clear();
    clean_project();
}

bool Engine::open_project(const std::string& path, std::string& error) {
    ProjectDocument document;
    return read_project(path, document, error) && open_document(document, path, error);
}

// Checked as a whole ahead of the first touch, so that a project which can't be opened costs no open one.
bool Engine::check_kinds(const ProjectDocument& document, const std::string& path, std::string& error) const {
    for (const ProjectItem& item : document.items) {
        if (find_item_kind(item.type)) continue;
        error = path + ":" + std::to_string(item.line) + ": unknown kind of item (found type " +
                std::to_string(item.type) + ", expected one that a loaded module or the engine makes)";
        return false;
    }
    return true;
}

bool Engine::open_document(const ProjectDocument& document, const std::string& path, std::string& error) {
    if (m_event_depth > 0) {
        error = path + ": not opened: an input event is still on its way";
        return false;
    }
    if (!check_kinds(document, path, error)) return false;
    clean_project();
    project_file_path = from_utf8(path);
    fill(document, path);
    return true;
}

void Engine::fill(const ProjectDocument& document, const std::string& path) {
    load_operation operation;
    operation.system = this;
    operation.project_folder = folder_of(path);
    operation.warnings = &m_warnings;
    for (const auto& library : m_modules) {
        const std::string name = to_utf8(library->module().get_name());
        ProjectNode nothing(name);
        ProjectNode* stored = document.modules.child(name);
        library->module().on_open_project(stored ? stored : &nothing, operation);
    }
    for (const ProjectItem& stored : document.items) create_item(stored, operation);
    for (const auto& library : m_modules) library->module().on_project_opened();
}

void Engine::create_item(const ProjectItem& stored, load_operation& operation) {
    const CMyComPtr<IBaseItem> item(find_item_kind(stored.type)->creator(this));
    IActor* parent = stored.parent.is_empty() ? nullptr : m_scene.search_actor_by_guid(stored.parent);
    IActor* made = m_scene.create_actor(item.get(), parent, 1);
    if (!made) {
        m_warnings.push_back(to_utf8(stored.name) + ": the item could not be made");
        return;
    }
    auto* actor = static_cast<Actor*>(made);
    actor->set_id(stored.id);
    actor->set_name(stored.name.c_str(), false);
    actor->set_visible(stored.visible);
    actor->set_flag(stored.flag);
    operation.owner_id = stored.id;
    operation.owner_name = stored.name;
    item->on_parse(const_cast<ProjectNode*>(&stored.data), operation);
    item->on_ready();
}

ProjectDocument Engine::document(const std::string& path) {
    save_operation operation;
    operation.system = this;
    operation.project_folder = folder_of(path);
    operation.to_file = !path.empty();
    ProjectDocument document;
    save_modules(document, operation);
    save_items(document, operation);
    return document;
}

bool Engine::save_project(const std::string& path, std::string& error) {
    if (!write_project(path, document(path), error)) return false;
    project_file_path = from_utf8(path);
    return true;
}

// Ahead of the items, for the modules number them here.
void Engine::save_modules(ProjectDocument& document, const save_operation& operation) {
    for (const auto& library : m_modules) {
        IBaseModule& module = library->module();
        module.on_save_project(&document.modules.add(to_utf8(module.get_name())), operation);
    }
}

// Writes one actor with its item, if both have something to write and the actor above is in the file.
void Engine::save_item(const Actor& actor, SavedIds& ids, ProjectDocument& document, const save_operation& operation) {
    const IActor* parent = actor.get_parent();
    const auto parent_id = ids.of_actor.find(parent);
    // What hangs below an actor that isn't saved would have no place to come back to.
    if (!actor.is_in_scene() || (parent && parent_id == ids.of_actor.end())) return;
    ProjectItem item;
    actor.get_item()->save_to_node(&item.data, operation);
    if (item.data.is_empty()) return;
    item.type = actor.get_item()->get_type();
    item.id = actor.get_id();
    // The file tells items apart by their identifiers, whatever scripts and tools have made of them.
    while (item.id.is_empty() || !ids.used.insert(item.id).second) item.id = m_scene.new_id();
    ids.of_actor[&actor] = item.id;
    if (parent) item.parent = parent_id->second;
    item.name = actor.get_name();
    item.visible = actor.is_visible();
    item.flag = actor.get_flag();
    document.items.push_back(std::move(item));
}

// In the order of creation, which modules keep as the order of their own lists; an actor that hangs below a later one
// waits for it.
void Engine::save_items(ProjectDocument& document, const save_operation& operation) {
    std::set<const Actor*> done;
    SavedIds ids;
    for (const Actor* actor : m_scene.actors()) {
        std::vector<const Actor*> above;
        for (const Actor* at = actor; at && done.insert(at).second; at = static_cast<const Actor*>(at->get_parent()))
            above.push_back(at);
        for (auto next = above.rbegin(); next != above.rend(); ++next) save_item(**next, ids, document, operation);
    }
}

}  // namespace host
