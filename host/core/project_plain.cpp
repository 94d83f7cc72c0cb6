#include "host/core/project_plain.h"

#include <utility>

#include "host/core/id_set.h"
#include "host/core/plain_text.h"

namespace host {
namespace {

/// Makes the node.
struct Building {
    // Files are read once, and a look for a value that was there before costs more than it saves.
    static constexpr bool values_repeat = false;
    ProjectNode* node;
    template <class Value>
    bool property(std::string_view key, Value& value) {
        return node->put(key, std::move(value));
    }
    bool text(std::string_view key, std::string_view bytes) { return node->put(key, tstringW(from_utf8(bytes))); }
    Building child(std::string_view name) { return {&node->add(name)}; }
    bool is_complete() const { return true; }
};

bool read_items(Plain& plain, ProjectDocument& document) {
    // Most have more bytes than that.
    constexpr std::size_t usual_item = 1024;
    document.items.reserve(plain.rest().size() / usual_item);
    const auto memory = std::make_shared<ProjectMemory>();
    IdSet ids;
    for (;;) {
        plain.skip_blanks();
        const int line = plain.line();
        if (plain.take("</items>")) return true;
        if (!plain.take("<item")) return false;
        ProjectItem& item = document.items.emplace_back();
        item.data = ProjectNode("item", memory);
        item.line = line;
        if (!plain.item_head(item, [&] { return plain.name(item.name); }) ||
            !plain.inside(Building{&item.data}, item_depth, "</item>"))
            return false;
        if (!item.parent.is_empty() && !ids.contains(item.parent)) return false;
        if (!ids.insert(item.id)) return false;
    }
}

bool read_anim_nodes(Plain& plain, ProjectAnimation& animation) {
    if (plain.take("/>")) return true;
    if (!plain.take(">")) return false;
    const auto memory = std::make_shared<ProjectMemory>();
    for (;;) {
        plain.skip_blanks();
        const int line = plain.line();
        if (plain.take("</animation>")) return true;
        if (!plain.take("<anim_node")) return false;
        ProjectAnimNode& node = animation.nodes.emplace_back();
        node.data = ProjectNode("anim_node", memory);
        node.line = line;
        if (!plain.anim_node_head(node) || !plain.inside(Building{&node.data}, anim_node_depth, "</anim_node>"))
            return false;
    }
}

bool read_animations(Plain& plain, ProjectDocument& document) {
    for (;;) {
        plain.skip_blanks();
        const int line = plain.line();
        if (plain.take("</animations>")) return true;
        if (!plain.take("<animation")) return false;
        ProjectAnimation& animation = document.animations.emplace_back();
        animation.line = line;
        if (!plain.animation_head(animation) || !read_anim_nodes(plain, animation)) return false;
    }
}

}  // namespace

std::optional<ProjectDocument> parse_plain_project(std::string_view text) {
    std::optional<ProjectDocument> document(std::in_place);
    KnownLines lines;
    Plain plain(text, lines);
    static_assert(project_version == 1);
    const bool good = plain.take("<?xml version=\"1.0\" encoding=\"UTF-8\"?>") &&
                      plain.take_next("<project version=\"1\">") && plain.take_next("<modules>") &&
                      plain.children(Building{&document->modules}, modules_depth, "</modules>") &&
                      plain.take_next("<items>") && read_items(plain, *document) &&
                      (!plain.take_next("<animations>") || read_animations(plain, *document)) &&
                      plain.take_next("</project>") && (plain.skip_blanks(), plain.is_at_end());
    if (!good) document.reset();
    return document;
}

}  // namespace host
