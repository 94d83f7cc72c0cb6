#include "player/scenario/tree_values.h"

#include <functional>
#include <set>

#include "host/core/text_conversion.h"
#include "player/scenario/arguments.h"

namespace scenario {

namespace {

using host::ProjectAnimation;
using host::ProjectAnimNode;
using host::ProjectItem;
using host::ProjectNode;
using host::PropertyValue;

constexpr const char* modules_name = "modules";
constexpr const char* items_name = "items";
constexpr const char* animations_name = "animations";

Value show(host::StoredBool flag) { return flag.value; }
Value show(const VEC3& vector) { return Value::array({vector.x, vector.y, vector.z}); }
template <class T>
Value show(const T& value) {
    return value_of(value);
}

void store(const Value& value, const std::string& what, host::StoredBool& flag) { read_value(value, what, flag.value); }
void store(const Value& value, const std::string& what, VEC3& vector) {
    float numbers[3];
    read_numbers(value, what, numbers, 3);
    vector = {numbers[0], numbers[1], numbers[2]};
}
template <class T>
void store(const Value& value, const std::string& what, T& target) {
    read_value(value, what, target);
}

// One value of each kind, so that a name of a kind finds it.
const PropertyValue kinds[] = {0, host::StoredBool{}, 0.0f, CRect(), VEC3(), VEC4(), tstringW()};

PropertyValue property_value(const std::string& kind, const Value& value, const std::string& what) {
    for (PropertyValue stored : kinds) {
        if (kind != host::kind_name(stored)) continue;
        std::visit([&](auto& target) { store(value, what, target); }, stored);
        return stored;
    }
    throw Failure(what + ": there is no type \"" + kind + "\"");
}

// ---- What the engine stores of an item, an animation or a node, as properties --------------------------------------

template <class Field>
PropertyValue to_property(const Field& field) {
    return field;
}
PropertyValue to_property(unsigned long number) { return static_cast<int>(number); }
PropertyValue to_property(unsigned number) { return static_cast<int>(number); }
PropertyValue to_property(bool flag) { return host::StoredBool{flag}; }
PropertyValue to_property(const CGuid& id) { return tstringW(id.is_empty() ? L"" : id.to_text()); }

[[noreturn]] void wrong_type(const std::string& what, const char* expected) {
    throw Failure(what + " must be of the type \"" + expected + "\"");
}

template <class Field>
void from_property(const PropertyValue& value, const std::string& what, Field& field) {
    const auto* held = std::get_if<Field>(&value);
    if (!held) wrong_type(what, host::kind_name(PropertyValue(Field())));
    field = *held;
}
void from_property(const PropertyValue& value, const std::string& what, int& number) {
    if (const auto* flag = std::get_if<host::StoredBool>(&value))
        number = flag->value;
    else if (const auto* held = std::get_if<int>(&value))
        number = *held;
    else
        wrong_type(what, "int");
}
void from_property(const PropertyValue& value, const std::string& what, bool& flag) {
    int number = 0;
    from_property(value, what, number);
    flag = number != 0;
}
void from_property(const PropertyValue& value, const std::string& what, unsigned long& number) {
    int read = 0;
    from_property(value, what, read);
    number = static_cast<unsigned long>(read);
}
void from_property(const PropertyValue& value, const std::string& what, unsigned& number) {
    int read = 0;
    from_property(value, what, read);
    number = static_cast<unsigned>(read);
}
void from_property(const PropertyValue& value, const std::string& what, CGuid& id) {
    tstringW text;
    from_property(value, what, text);
    id = CGuid(text.c_str());
    if (id.is_empty() && !text.empty()) throw Failure(what + ": \"" + to_utf8(text) + "\" is no identifier");
}

/// One thing that the engine stores of a part of the project.
template <class Part>
struct EngineField {
    const char* key;
    PropertyValue (*get)(const Part&);
    void (*set)(Part&, const PropertyValue&, const std::string& what);
};

/// `Get` is a lambda that gives the member of a part; its type alone carries it.
template <class Part, class Get>
constexpr EngineField<Part> engine_field(const char* key, Get) {
    return {key, [](const Part& part) { return to_property(Get{}(const_cast<Part&>(part))); },
            [](Part& part, const PropertyValue& value, const std::string& what) {
                from_property(value, what, Get{}(part));
            }};
}
constexpr auto item_field = [](const char* key, auto get) { return engine_field<ProjectItem>(key, get); };
constexpr auto animation_field = [](const char* key, auto get) { return engine_field<ProjectAnimation>(key, get); };
constexpr auto node_field = [](const char* key, auto get) { return engine_field<ProjectAnimNode>(key, get); };

const EngineField<ProjectItem> item_fields[] = {
    item_field(
        "type", [](auto& item) -> auto& { return item.type; }),
    item_field(
        "id", [](auto& item) -> auto& { return item.id; }),
    item_field(
        "parent", [](auto& item) -> auto& { return item.parent; }),
    item_field(
        "name", [](auto& item) -> auto& { return item.name; }),
    item_field(
        "visible", [](auto& item) -> auto& { return item.visible; }),
    item_field(
        "flag", [](auto& item) -> auto& { return item.flag; }),
};
const EngineField<ProjectAnimation> animation_fields[] = {
    animation_field(
        "name", [](auto& animation) -> auto& { return animation.name; }),
    animation_field(
        "length", [](auto& animation) -> auto& { return animation.info.length; }),
    animation_field(
        "rate", [](auto& animation) -> auto& { return animation.info.rate; }),
    animation_field(
        "mode_flag", [](auto& animation) -> auto& { return animation.info.mode_flag; }),
    animation_field(
        "mode_count", [](auto& animation) -> auto& { return animation.info.mode_count; }),
    animation_field(
        "factor", [](auto& animation) -> auto& { return animation.info.factor; }),
    animation_field(
        "starts_by_itself", [](auto& animation) -> auto& { return animation.starts_by_itself; }),
};
const EngineField<ProjectAnimNode> node_fields[] = {
    node_field(
        "type", [](auto& node) -> auto& { return node.type; }),
    node_field(
        "item", [](auto& node) -> auto& { return node.item; }),
};

// ---- Out of a project ----------------------------------------------------------------------------------------------

Value property_of(std::string_view key, const PropertyValue& value) {
    return {{"key", key},
            {"type", host::kind_name(value)},
            {"value", std::visit([](const auto& held) { return show(held); }, value)}};
}

Value node_of(std::string_view name) {
    return {{"name", name}, {"properties", Value::array()}, {"children", Value::array()}};
}

void show_content(const ProjectNode& node, Value& shown) {
    for (const host::Property& property : node.properties())
        shown["properties"].push_back(property_of(property.key, property.value));
    for (const auto& child : node.children()) {
        Value below = node_of(child->name());
        show_content(*child, below);
        shown["children"].push_back(std::move(below));
    }
}

template <class Part, std::size_t Count>
Value node_with(const char* name, const Part& part, const EngineField<Part> (&fields)[Count]) {
    Value node = node_of(name);
    for (const auto& field : fields) node["properties"].push_back(property_of(field.key, field.get(part)));
    return node;
}

Value item_node(const ProjectItem& item) {
    Value node = node_with("item", item, item_fields);
    show_content(item.data, node);
    return node;
}

Value animation_node(const ProjectAnimation& animation) {
    Value node = node_with("animation", animation, animation_fields);
    for (const ProjectAnimNode& animated : animation.nodes) {
        Value below = node_with("anim_node", animated, node_fields);
        show_content(animated.data, below);
        node["children"].push_back(std::move(below));
    }
    return node;
}

// ---- Into a project ------------------------------------------------------------------------------------------------

/// A node of a tree that a scenario made, with its place in it for errors.
struct TreeNode {
    TreeNode(const Value& table, const std::string& what) : fields(table, what) {
        fields.read("name", name);
        for (const char* list : {"properties", "children"})
            if (fields.has(list) && !fields.get(list).is_array()) throw Failure(fields.where(list) + " must be a list");
    }
    const Value& list(const char* name_of_list) {
        static const Value empty = Value::array();
        return fields.has(name_of_list) ? fields.get(name_of_list) : empty;
    }
    std::string place(const char* list_name, std::size_t at) const {
        return fields.where(list_name) + "[" + std::to_string(at + 1) + "]";
    }
    /// Each child with its place in turn.
    void each_child(const std::function<void(TreeNode&, const std::string& place)>& visit) {
        const Value& children = list("children");
        for (std::size_t at = 0; at < children.size(); ++at) {
            TreeNode below(children[at], place("children", at));
            visit(below, place("children", at));
        }
    }

    Fields fields;
    std::string name;
};

struct TreeProperty {
    TreeProperty(const Value& table, const std::string& what) {
        Fields fields(table, what);
        std::string kind;
        if (!fields.read("key", key) || !fields.read("type", kind) || !fields.has("value"))
            throw Failure(what + " must have a key, a type and a value");
        value = property_value(kind, fields.get("value"), fields.where("value"));
        fields.finish();
    }
    std::string key;
    PropertyValue value;
};

void fill_properties(ProjectNode& node, TreeNode& tree, std::size_t first) {
    const Value& properties = tree.list("properties");
    for (std::size_t at = first; at < properties.size(); ++at) {
        TreeProperty property(properties[at], tree.place("properties", at));
        node.set(property.key, std::move(property.value));
    }
}

void fill(ProjectNode& node, TreeNode& tree, std::size_t first_property) {
    fill_properties(node, tree, first_property);
    tree.each_child([&node](TreeNode& below, const std::string&) { fill(node.add(below.name), below, 0); });
    tree.fields.finish();
}

// The engine's own properties stand first, each once, so that what a part wrote may use their keys again. Gives the
// place of the first property that is the part's own.
template <class Part, std::size_t Count>
std::size_t read_engine_fields(Part& part, TreeNode& tree, const EngineField<Part> (&fields)[Count]) {
    const Value& properties = tree.list("properties");
    std::set<std::string> seen;
    for (std::size_t at = 0; at < properties.size(); ++at) {
        const std::string place = tree.place("properties", at);
        const TreeProperty property(properties[at], place);
        const auto field = std::find_if(std::begin(fields), std::end(fields),
                                        [&](const auto& row) { return property.key == row.key; });
        if (field == std::end(fields) || !seen.insert(property.key).second) return at;
        field->set(part, property.value, place);
    }
    return properties.size();
}

// As the file's own reader has it: parents ahead of their children, every identifier once.
void check_order(const ProjectItem& item, std::set<CGuid>& ids, const std::string& what) {
    if (!item.parent.is_empty() && !ids.contains(item.parent))
        throw Failure(what + ": unknown parent " + to_utf8(item.parent.to_text()) + " (it must stand further up)");
    if (item.id.is_empty()) throw Failure(what + " has no id");
    if (!ids.insert(item.id).second)
        throw Failure(what + ": identifier " + to_utf8(item.id.to_text()) + " stands twice");
}

void fill_items(host::ProjectDocument& document, TreeNode& tree) {
    std::set<CGuid> ids;
    tree.each_child([&](TreeNode& below, const std::string& place) {
        ProjectItem item;
        fill(item.data, below, read_engine_fields(item, below, item_fields));
        check_order(item, ids, place);
        document.items.push_back(std::move(item));
    });
    tree.fields.finish();
}

void fill_animations(host::ProjectDocument& document, TreeNode& tree) {
    tree.each_child([&](TreeNode& animation, const std::string&) {
        ProjectAnimation& made = document.animations.emplace_back();
        read_engine_fields(made, animation, animation_fields);
        animation.each_child([&](TreeNode& below, const std::string&) {
            ProjectAnimNode& node = made.nodes.emplace_back();
            fill(node.data, below, read_engine_fields(node, below, node_fields));
        });
        animation.fields.finish();
    });
    tree.fields.finish();
}

}  // namespace

Value tree_of(const host::ProjectDocument& document) {
    Value root = node_of("project");
    Value modules = node_of(modules_name);
    show_content(document.modules, modules);
    root["children"].push_back(std::move(modules));
    Value items = node_of(items_name);
    for (const ProjectItem& item : document.items) items["children"].push_back(item_node(item));
    root["children"].push_back(std::move(items));
    if (document.animations.empty()) return root;
    Value animations = node_of(animations_name);
    for (const ProjectAnimation& animation : document.animations)
        animations["children"].push_back(animation_node(animation));
    root["children"].push_back(std::move(animations));
    return root;
}

host::ProjectDocument document_of(const Value& tree, const std::string& what) {
    host::ProjectDocument document;
    TreeNode root(tree, what);
    root.list("properties");
    root.each_child([&document](TreeNode& below, const std::string& place) {
        if (below.name == modules_name)
            fill(document.modules, below, 0);
        else if (below.name == items_name)
            fill_items(document, below);
        else if (below.name == animations_name)
            fill_animations(document, below);
        else
            throw Failure(place + ": \"" + below.name + "\" is neither \"modules\" nor \"items\" nor \"animations\"");
    });
    root.fields.finish();
    return document;
}

}  // namespace scenario
