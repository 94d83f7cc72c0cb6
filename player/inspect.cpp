#include <iostream>
#include <map>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <unordered_map>
#include <unordered_set>

#include "host/core/project_file.h"
#include "host/core/project_text.h"
#include "host/core/text_conversion.h"
#include "player/commands.h"
#include "player/findings.h"
#include "player/progress.h"
#include "player/scenario_library.h"

namespace player {

namespace {

using host::ProjectDocument;
using host::ProjectItem;
using host::ProjectNode;
using host::PropertyValue;
using nlohmann::ordered_json;

/// What a property holds, as JSON.
struct JsonOf {
    ordered_json operator()(int value) const { return value; }
    ordered_json operator()(host::StoredBool value) const { return value.value; }
    ordered_json operator()(float value) const { return value; }
    ordered_json operator()(const CRect& r) const { return {r.left, r.top, r.right, r.bottom}; }
    ordered_json operator()(const VEC3& v) const { return {v.x, v.y, v.z}; }
    ordered_json operator()(const VEC4& v) const { return {v.x, v.y, v.z, v.w}; }
    ordered_json operator()(const tstringW& text) const { return to_utf8(text); }
};

ordered_json json_of(const ProjectNode& node) {
    ordered_json properties = ordered_json::array();
    for (const host::Property& property : node.properties()) {
        properties.push_back({{"key", property.key},
                              {"type", host::kind_name(property.value)},
                              {"value", std::visit(JsonOf(), property.value)}});
    }
    ordered_json children = ordered_json::array();
    for (const auto& child : node.children()) children.push_back(json_of(*child));
    return {{"name", node.name()}, {"properties", properties}, {"children", children}};
}

const char* kind_of(unsigned long type) {
    return type == ITEM_TYPE_DIALOG ? "dialog" : type == ITEM_TYPE_SHAPE ? "shape" : "other";
}

void print_node(const ProjectNode& node, const std::string& indent) {
    for (const host::Property& property : node.properties()) {
        std::cout << indent << property.key << " = " << std::visit(JsonOf(), property.value).dump() << '\n';
    }
    for (const auto& child : node.children()) {
        std::cout << indent << child->name() << ":\n";
        print_node(*child, indent + "    ");
    }
}

/// Prints items below their parents, each once, whatever the file says of who stands under whom.
class ItemTree {
public:
    explicit ItemTree(const ProjectDocument& document) : m_document(document) {
        for (const ProjectItem& item : document.items) {
            if (!item.parent.is_empty()) m_children[item.parent.to_text()].push_back(&item);
        }
    }

    void print() {
        for (const ProjectItem& item : m_document.items) {
            if (item.parent.is_empty()) print(item, "");
        }
        // What stands under nothing that exists, or in a circle.
        for (const ProjectItem& item : m_document.items) print(item, "");
    }

private:
    void print(const ProjectItem& item, const std::string& indent) {
        if (!m_printed.insert(&item).second) return;
        const std::string id = item.id.is_empty() ? "" : to_utf8(item.id.to_text());
        std::cout << indent << kind_of(item.type) << " \"" << to_utf8(item.name) << "\"  " << id
                  << (item.visible ? "" : "  hidden") << '\n';
        print_node(item.data, indent + "    ");
        const auto children = m_children.find(item.id.to_text());
        if (item.id.is_empty() || children == m_children.end()) return;
        for (const ProjectItem* child : children->second) print(*child, indent + "    ");
    }

    const ProjectDocument& m_document;
    std::unordered_map<std::wstring, std::vector<const ProjectItem*>> m_children;
    std::unordered_set<const ProjectItem*> m_printed;
};

using ItemsById = std::map<CGuid, const ProjectItem*>;

ItemsById by_id(const ProjectDocument& document) {
    ItemsById items;
    for (const ProjectItem& item : document.items) items.emplace(item.id, &item);
    return items;
}

/// What the node moves; null if that is gone.
const ProjectItem* item_of(const ItemsById& items, const host::ProjectAnimNode& node) {
    const auto found = items.find(node.item);
    return found == items.end() ? nullptr : found->second;
}

ordered_json json_of(const ItemsById& items, const host::ProjectAnimation& animation) {
    ordered_json nodes = ordered_json::array();
    for (const host::ProjectAnimNode& node : animation.nodes) {
        const ProjectItem* item = item_of(items, node);
        const ordered_json data = json_of(node.data);
        nodes.push_back({{"type", node.type},
                         {"item", to_utf8(node.item.to_text())},
                         {"item_name", item ? ordered_json(to_utf8(item->name)) : ordered_json()},
                         {"line", node.line},
                         {"properties", data["properties"]},
                         {"children", data["children"]}});
    }
    const anim_info& info = animation.info;
    return {{"name", to_utf8(animation.name)},     {"length", info.length},         {"rate", info.rate},
            {"mode_flag", info.mode_flag},         {"mode_count", info.mode_count}, {"factor", info.factor},
            {"start", animation.starts_by_itself}, {"line", animation.line},        {"nodes", nodes}};
}

void print_json(const ProjectDocument& document, const std::vector<Finding>& findings) {
    ordered_json items = ordered_json::array();
    for (const ProjectItem& item : document.items) {
        const ordered_json data = json_of(item.data);
        items.push_back(
            {{"id", to_utf8(item.id.to_text())},
             {"parent", item.parent.is_empty() ? ordered_json() : ordered_json(to_utf8(item.parent.to_text()))},
             {"name", to_utf8(item.name)},
             {"kind", kind_of(item.type)},
             {"type", item.type},
             {"visible", item.visible},
             {"flag", item.flag},
             {"line", item.line},
             {"properties", data["properties"]},
             {"children", data["children"]}});
    }
    ordered_json problems = ordered_json::array();
    for (const Finding& finding : findings) {
        problems.push_back({{"line", finding.line}, {"item", to_utf8(finding.item)}, {"text", finding.text}});
    }
    const ItemsById items_by_id = by_id(document);
    ordered_json animations = ordered_json::array();
    for (const host::ProjectAnimation& animation : document.animations) {
        animations.push_back(json_of(items_by_id, animation));
    }
    const ordered_json whole = {{"modules", json_of(document.modules)["children"]},
                                {"items", items},
                                {"animations", animations},
                                {"problems", problems}};
    std::cout << whole.dump(2, ' ', false, ordered_json::error_handler_t::replace) << '\n';
}

std::string how_it_plays(const host::ProjectAnimation& animation) {
    const anim_info& info = animation.info;
    std::string text = host::format_value(info.length) + " s";
    if (info.mode_flag == 1) text += " there and back";
    if (info.mode_count < 0) text += ", without an end";
    if (info.mode_count >= 0 && info.mode_count != 1) text += ", " + std::to_string(info.mode_count) + " times";
    if (info.factor != 1.0f) text += ", " + host::format_value(info.factor) + " times as fast";
    if (animation.starts_by_itself) text += ", starts by itself";
    return text;
}

void print_animation(const ItemsById& items, const host::ProjectAnimation& animation) {
    std::cout << "animation \"" << to_utf8(animation.name) << "\"  " << how_it_plays(animation) << '\n';
    for (const host::ProjectAnimNode& node : animation.nodes) {
        const ProjectItem* item = item_of(items, node);
        const std::string moved = item ? "\"" + to_utf8(item->name) + "\"" : "an item that is gone";
        std::cout << "    moves " << moved << "  " << to_utf8(node.item.to_text()) << '\n';
        print_node(node.data, "        ");
    }
}

void print_text(const std::string& file, const ProjectDocument& document, const std::vector<Finding>& findings) {
    std::cout << file << '\n';
    for (const auto& module : document.modules.children()) {
        std::cout << "module " << module->name() << '\n';
        print_node(*module, "    ");
    }
    ItemTree(document).print();
    const ItemsById items = by_id(document);
    for (const host::ProjectAnimation& animation : document.animations) print_animation(items, animation);
    for (const Finding& finding : findings) {
        std::cout << "problem: " << file;
        if (finding.line > 0) std::cout << ':' << finding.line;
        if (!finding.item.empty()) std::cout << ": \"" << to_utf8(finding.item) << '"';
        std::cout << ": " << finding.text << '\n';
    }
    if (findings.empty()) std::cout << "no problems\n";
}

// As the module finds it. The library is loaded where a project needs it, which most don't.
std::string installed_font(const FontWish& wish) {
    ScenarioLibrary library;
    std::string error;
    std::vector<fonts::Try> tries;
    if (!library.load(error)) throw std::runtime_error(error);
    library.font_tries(wish, tries);
    for (const fonts::Try& candidate : tries)
        if (!candidate.file.empty()) return candidate.file;
    return {};
}

}  // namespace

int inspect(const InspectOptions& options) {
    ProjectDocument document;
    std::string error;
    {
        const Progress progress("Reading " + options.project);
        if (!host::read_project(options.project, document, error)) return fail(error + advice_on(options.project));
    }
    const std::vector<Finding> findings = find_problems(document, options.project, &installed_font);
    if (options.json) {
        print_json(document, findings);
    } else {
        print_text(options.project, document, findings);
    }
    return findings.empty() ? EXIT_DONE : EXIT_FAILED;
}

}  // namespace player
