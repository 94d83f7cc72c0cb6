// How the engine opens and saves projects.

#include <algorithm>
#include <array>
#include <span>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "host/core/fetch.h"
#include "host/core/item_store.h"
#include "host/core/legacy_file.h"
#include "host/core/memory_watch.h"
#include "host/core/project_file.h"
#include "host/core/project_save.h"
#include "host/core/text_conversion.h"
#include "host/system/animation.h"
#include "host/system/engine.h"

namespace host {

void Engine::clean_project() {
    end_run();
    m_selection.select({});
    m_animations.clear();
    m_scene.clear();
    m_warnings.clear();
    look = first_look();
    for (const auto& library : m_modules) library->module().on_clean_project();
}

void Engine::set_project_path(const std::string& path) {
    if (!m_path_is_fixed) project_file_path = from_utf8(path);
}

void Engine::fix_project_path(const tstringW& path) {
    project_file_path = path;
    m_path_is_fixed = true;
}

bool Engine::new_project(int width, int height) {
    const MemoryWatch watch;
    m_client = {0, 0, std::max(width, 0), std::max(height, 0)};
    set_project_path({});
    // The modules may know the former one up to their clean project.
    const CMyComPtr<IBaseFont> former = m_font;
    if (m_next_font) m_font = std::exchange(m_next_font, {});
    default_font = m_font.get();
    clean_project();
    return !watch.ran_out();
}

bool Engine::open_project(const std::string& path, std::string& error) try {
    ProjectDocument document;
    return read_project(path, document, error) && open_document(document, path, error);
} catch (const std::bad_alloc&) {
    return out_of_memory(path, error);
}

namespace {

// Where something stands: a line of the file, or, made in memory, what bears a name of its own.
std::string place_of(const std::string& path, int line, const tstringW& name) {
    if (line > 0) return path + ":" + std::to_string(line) + ": ";
    return "\"" + to_utf8(name) + "\": ";
}

}  // namespace

// Checked as a whole ahead of the first touch, so that a project which can't be opened costs no open one.
bool Engine::check_kinds(const ProjectDocument& document, const std::string& path, std::string& error) {
    const auto complain = [&error](const std::string& place, const char* what, const std::string& found) {
        error = place + "unknown kind of " + what + " (found " + found +
                ", expected one that a loaded module or the engine makes)";
        return false;
    };
    for (const ProjectItem& item : document.items) {
        if (!find_item_kind(item.type))
            return complain(place_of(path, item.line, item.name), "item", "type " + std::to_string(item.type));
    }
    for (const ProjectAnimation& animation : document.animations) {
        for (const ProjectAnimNode& node : animation.nodes) {
            const std::string place = place_of(path, node.line, animation.name);
            if (!find_anim_node_kind(node.type))
                return complain(place, "animation node", "type " + std::to_string(node.type));
            const std::string unknown = unknown_track(node.data);
            if (!unknown.empty()) return complain(place, "track", unknown);
        }
    }
    return true;
}

// The tool that hears an event would be destroyed in the middle of it.
bool Engine::can_open(const std::string& path, std::string& error) const {
    if (m_event_depth == 0) return true;
    error = (path.empty() ? "" : path + ": ") + "not opened: an input event is still on its way";
    return false;
}

// What is half opened must not stay: saved, it would take the place of the whole. False where memory ran out: then the
// project is an empty one.
template <class Fill>
bool Engine::make_project(const std::string& path, Fill fill) {
    const MemoryWatch watch;
    try {
        clean_project();
        set_project_path(path);
        fill();
        if (!watch.ran_out()) return true;
    } catch (const std::bad_alloc&) {
        // It ends as it does where a module kept quiet about it.
    }
    set_project_path({});
    clean_project();
    return false;
}

// Modules hold one project, so the former must end ahead of the next; without memory for that it comes back as a save
// of it would have.
template <class Fill>
bool Engine::replace_project(const std::string& path, std::string& error, Fill fill) {
    const std::string former_path = to_utf8(project_file_path);
    const ProjectDocument former = document(former_path);
    const SceneLook former_look = look;
    if (make_project(path, fill)) return true;
    const bool came_back = make_project(former_path, [&] { this->fill(former, former_path); });
    if (came_back) look = former_look;
    out_of_memory(path, error);
    if (!came_back) error += "; the project that was open had to be closed";
    return false;
}

bool Engine::open_document(const ProjectDocument& document, const std::string& path, std::string& error) try {
    if (!can_open(path, error) || !check_kinds(document, path, error)) return false;
    return replace_project(path, error, [&] { fill(document, path); });
} catch (const std::bad_alloc&) {
    return out_of_memory(path, error);
}

bool Engine::import_project(const std::string& path, std::string& error) try {
    const auto legacy = read_legacy(path, error);
    return legacy && import_tree(*legacy, error);
} catch (const std::bad_alloc&) {
    return out_of_memory(path, error);
}

bool Engine::import_tree(LegacyProject& legacy, std::string& error) try {
    const std::string path = to_utf8(legacy.get_full_filename());
    if (!can_open(path, error)) return false;
    return replace_project(path, error, [&] {
        for (const auto& library : m_modules) library->module().on_open_old_zov_project(&legacy.root());
    });
} catch (const std::bad_alloc&) {
    return out_of_memory({}, error);
}

void Engine::fill(const ProjectDocument& document, const std::string& path) {
    load_operation operation;
    operation.system = this;
    operation.project_folder = folder_of(path);
    operation.warnings = &m_warnings;
    for (const auto& library : m_modules) {
        const std::string name = to_utf8(library->module().get_name());
        ProjectNode nothing(name.c_str());
        ProjectNode* stored = document.modules.child(name);
        library->module().on_open_project(stored ? stored : &nothing, operation);
    }
    for (const ProjectItem& stored : document.items) create_item(stored, operation);
    // Ahead of on_project_opened, in which modules bring the keys in line with the view.
    for (const ProjectAnimation& stored : document.animations) create_animation(stored, operation);
    for (const auto& library : m_modules) library->module().on_project_opened();
}

void Engine::create_item(const ProjectItem& stored, load_operation& operation) {
    const CMyComPtr<IBaseItem> item(find_item_kind(stored.type)->creator(this));
    IActor* parent = stored.parent.is_empty() ? nullptr : m_scene.search_actor_by_guid(stored.parent);
    Actor* actor = m_scene.create_actor_as(item.get(), parent, stored.id, stored.name.c_str());
    if (!actor) {
        m_warnings.push_back(to_utf8(stored.name) + ": the item could not be made");
        return;
    }
    actor->set_visible(stored.visible);
    actor->set_flag(stored.flag);
    operation.owner_id = stored.id;
    operation.owner_name = stored.name;
    item->on_parse(const_cast<ProjectNode*>(&stored.data), operation);
    item->on_ready();
}

void Engine::create_animation(const ProjectAnimation& stored, load_operation& operation) {
    Animation* made = m_animations.create_animation(stored.name.c_str());
    made->set_anim_info(stored.info);
    made->starts_by_itself = stored.starts_by_itself;
    operation.owner_id = {};
    operation.owner_name = stored.name;
    for (const ProjectAnimNode& stored_node : stored.nodes) {
        const CMyComPtr<CAnimNodeBase> node(
            AnimSystemLibrary::create_anim_node_by_type(this, stored_node.type, stored_node.item));
        if (!node) {
            m_warnings.push_back(to_utf8(stored.name) + ": an animation node could not be made");
            continue;
        }
        made->add_anim_node(node.get());
        node->on_parse(const_cast<ProjectNode*>(&stored_node.data), operation);
        node->on_ready();
    }
}

struct Engine::Saving {
    ProjectParts& out;
    save_operation operation;
    /// Those that are in the file, where others may ask for them: what stands above others, or under another identifier
    /// than its own.
    std::unordered_map<const IActor*, CGuid> id_of{};
    /// Those in work, the first so many of them. Their trees are written again and again.
    std::array<ProjectItem, 16> items{};
    std::size_t count = 0;

    void hand_over_items() {
        if (count > 0) out.add_items({items.data(), count});
        count = 0;
    }
};

namespace {

class DocumentParts final : public ProjectParts {
public:
    void add_modules(ProjectNode& modules) override { document.modules = std::move(modules); }
    void add_items(std::span<ProjectItem> items) override {
        for (ProjectItem& item : items) {
            document.items.push_back(std::exchange(item, {}));
            item.data = ProjectNode("item", m_memory);
        }
    }
    void add_animation(ProjectAnimation& animation) override { document.animations.push_back(std::move(animation)); }
    bool take_id(const CGuid& id) override { return m_ids.insert(id); }

    ProjectDocument document;

private:
    IdSet m_ids;
    std::shared_ptr<ProjectMemory> m_memory = std::make_shared<ProjectMemory>();
};

}  // namespace

ProjectDocument Engine::document(const std::string& path) {
    DocumentParts parts;
    save_parts(path, parts);
    return std::move(parts.document);
}

bool Engine::save_project(const std::string& path, std::string& error) try {
    ProjectSave save(path, m_scene.size());
    save_parts(path, save);
    // Ahead of the file, so that nothing can fail once that has its place.
    tstringW own_path = m_path_is_fixed ? project_file_path : tstringW(from_utf8(path));
    if (!save.finish(error)) return false;
    project_file_path.swap(own_path);
    return true;
} catch (const std::bad_alloc&) {
    return out_of_memory(path, error);
}

void Engine::save_parts(const std::string& path, ProjectParts& out) {
    const MemoryWatch watch;
    save_operation operation;
    operation.system = this;
    operation.project_folder = folder_of(path);
    operation.to_file = !path.empty();
    Saving saving{out, std::move(operation)};
    save_modules(saving);
    save_items(saving);
    save_animations(saving);
    // Where a module kept quiet about it, the parts are no whole project.
    if (watch.ran_out()) throw std::bad_alloc();
}

// Ahead of the items, for the modules number them here.
void Engine::save_modules(const Saving& saving) {
    ProjectNode modules("modules");
    for (const auto& library : m_modules) {
        IBaseModule& module = library->module();
        module.on_save_project(&modules.add(to_utf8(module.get_name())), saving.operation);
    }
    saving.out.add_modules(modules);
}

// Writes one actor with its item, if both have something to write and the actor above is in the file.
void Engine::save_item(const Actor& actor, Saving& saving) {
    if (!actor.is_in_scene()) return;
    ProjectItem& item = saving.items[saving.count];
    item.parent = CGuid();
    if (const IActor* parent = actor.get_parent()) {
        const auto saved = saving.id_of.find(parent);
        // What hangs below an actor that isn't saved would have no place to come back to.
        if (saved == saving.id_of.end()) return;
        item.parent = saved->second;
    }
    item.data.begin_again();
    actor.get_item()->save_to_node(&item.data, saving.operation);
    if (item.data.is_empty()) return;
    item.type = actor.get_item()->get_type();
    item.id = actor.get_id();
    // The file tells items apart by their identifiers, whatever scripts and tools have made of them.
    while (item.id.is_empty() || !saving.out.take_id(item.id)) item.id = m_scene.new_id();
    if (actor.has_children() || !(item.id == actor.get_id())) saving.id_of[&actor] = item.id;
    item.name = actor.get_name();
    item.visible = actor.is_visible();
    item.flag = actor.get_flag();
    if (++saving.count == saving.items.size()) saving.hand_over_items();
}

namespace {

// Has fetched what the saves of some actors further on will read: first the actor, then what that leads to.
void approach(const std::vector<Actor*>& actors, std::size_t number) {
    constexpr std::size_t actors_ahead = 16;
    constexpr std::size_t items_ahead = 8;
    // Items of modules mostly have about so many bytes.
    constexpr std::size_t usual_item = 640;
    if (number + actors_ahead < actors.size()) fetch_all(actors[number + actors_ahead], sizeof(Actor));
    if (number + items_ahead >= actors.size()) return;
    const Actor& next = *actors[number + items_ahead];
    fetch_all(next.get_item(), usual_item);
    fetch(next.get_name().data());
}

}  // namespace

// In the order of creation, which modules keep as the order of their own lists; an actor that hangs below a later one
// waits for it.
void Engine::save_items(Saving& saving) {
    std::unordered_set<const Actor*> brought_forward;
    std::vector<const Actor*> above;
    const std::vector<Actor*> actors = m_scene.actors();
    for (std::size_t number = 0; number < actors.size(); ++number) {
        const Actor* const actor = actors[number];
        approach(actors, number);
        const auto is_done = [&](const Actor& other) {
            return other.serial() < actor->serial() || brought_forward.contains(&other);
        };
        above.clear();
        for (const Actor* at = actor; at && !is_done(*at); at = static_cast<const Actor*>(at->get_parent())) {
            above.push_back(at);
            if (at != actor) brought_forward.insert(at);
        }
        for (auto next = above.rbegin(); next != above.rend(); ++next) save_item(**next, saving);
    }
    saving.hand_over_items();
}

// A node whose item is gone is saved all the same: its keys are work, and the item may come back.
void Engine::save_animations(const Saving& saving) {
    for (const auto& animation : m_animations.all()) {
        ProjectAnimation stored;
        stored.name = animation->name();
        stored.info = animation->info();
        stored.starts_by_itself = animation->starts_by_itself;
        const auto memory = std::make_shared<ProjectMemory>();
        for (const auto& node : animation->nodes()) {
            ProjectAnimNode& stored_node = stored.nodes.emplace_back();
            stored_node.data = ProjectNode("anim_node", memory);
            stored_node.type = node->get_type();
            const CGuid item = node->get_internal_item_id();
            const auto saved = saving.id_of.find(m_scene.search_actor_by_guid(item));
            stored_node.item = saved == saving.id_of.end() ? item : saved->second;
            node->save_to_node(&stored_node.data, saving.operation);
        }
        saving.out.add_animation(stored);
    }
}

}  // namespace host
