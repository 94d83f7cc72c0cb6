#include "player/scenario/legacy_values.h"

#include <cmath>

#include "host/core/legacy_file.h"
#include "host/core/legacy_value.h"
#include "host/core/text_conversion.h"
#include "player/scenario/arguments.h"

namespace scenario {

namespace {

using host::LegacyContent;
using host::LegacyNode;

Value hex_value(const std::string& bytes) { return {{"hex", host::format_hex(bytes)}}; }

struct Show {
    Value operator()(float number) const { return value_of(number); }
    Value operator()(std::int32_t number) const { return number; }
    Value operator()(const VEC3& vector) const { return Value::array({vector.x, vector.y, vector.z}); }
    Value operator()(const CPoint& pair) const { return Value::array({pair.x, pair.y}); }
    Value operator()(const CGuid& id) const { return value_of(id); }
    Value operator()(const tstringW& text) const { return value_of(text); }
};

Value shown_data(const LegacyNode& node) {
    const auto content = host::legacy_content(node.code, node.data);
    if (!content) return hex_value(node.data);
    // Halves of characters have no place in the texts of a scenario.
    const auto* text = std::get_if<tstringW>(&*content);
    if (text && from_utf8(to_utf8(*text)) != *text) return hex_value(node.data);
    return std::visit(Show{}, *content);
}

Value node_value(const LegacyNode& node) {
    Value shown = {{"name", node.name}};
    if (node.code != 0) shown["code"] = node.code;
    if (node.code != 0 || !node.data.empty()) shown["value"] = shown_data(node);
    Value& children = shown["children"] = Value::array();
    for (CPakNode* child : node.children())
        children.push_back(child ? node_value(*host::legacy_node(child)) : Value(false));
    return shown;
}

struct Store {
    const Value& value;
    const std::string& what;

    std::string operator()(std::int32_t) const {
        // Moments are floats in the place of whole numbers.
        const bool is_moment = value.is_number_float() && std::floor(value.get<double>()) != value.get<double>();
        if (is_moment) return host::legacy_bytes(value.get<float>());
        return host::legacy_bytes(read_word(value, what));
    }
    std::string operator()(VEC3) const {
        float numbers[3];
        read_numbers(value, what, numbers, 3);
        return host::legacy_bytes(VEC3(numbers[0], numbers[1], numbers[2]));
    }
    std::string operator()(CPoint) const {
        if (!value.is_array() || value.size() != 2) throw Failure(what + " must be a list of 2 numbers");
        return host::legacy_bytes(CPoint(read_word(value[0], what), read_word(value[1], what)));
    }
    template <class T>
    std::string operator()(T target) const {
        read_value(value, what, target);
        return host::legacy_bytes(target);
    }
};

std::string raw_data(const Value& value, const std::string& what) {
    Fields fields(value, what);
    std::string text;
    fields.read("hex", text);
    fields.finish();
    const auto bytes = host::parse_hex(text);
    if (!bytes) throw Failure(what + ".hex must be pairs of hexadecimal digits");
    return *bytes;
}

std::string data_of(const Value& value, int code, const std::string& what) {
    if (value.is_object()) return raw_data(value, what);
    const LegacyContent* kind = host::legacy_content_kind(code);
    if (kind) return std::visit(Store{value, what}, *kind);
    if (code != 0) throw Failure(what + ": code " + std::to_string(code) + " has no values but {hex=}");
    tstringW text;
    read_value(value, what + " without a code", text);
    return host::legacy_units(text);
}

void fill(LegacyNode& node, const Value& table, const std::string& what) {
    Fields fields(table, what);
    fields.read("name", node.name);
    fields.read("code", node.code);
    if (fields.has("value")) {
        node.data = data_of(fields.get("value"), node.code, fields.where("value"));
    } else if (node.code != 0) {
        throw Failure(what + " has a code and no value");
    }
    static const Value none = Value::array();
    const Value& children = fields.has("children") ? fields.get("children") : none;
    if (!children.is_array()) throw Failure(fields.where("children") + " must be a list");
    for (std::size_t at = 0; at < children.size(); ++at) {
        if (children[at] == Value(false)) {
            node.add_nothing();
        } else {
            fill(node.add({}), children[at], fields.where("children") + "[" + std::to_string(at + 1) + "]");
        }
    }
    fields.finish();
}

}  // namespace

std::int32_t read_word(const Value& value, const std::string& what) {
    if (value.is_boolean()) return value.get<bool>() ? 1 : 0;
    const double number = value.is_number() ? value.get<double>() : NAN;
    if (std::floor(number) != number || number < INT32_MIN || number > UINT32_MAX)
        throw Failure(what + " must be a whole number of 32 bits, " + short_text(value) + " given");
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(static_cast<std::int64_t>(number)));
}

Value tree_of(const host::LegacyProject& project) { return node_value(project.root()); }

std::unique_ptr<host::LegacyProject> legacy_project_of(const Value& tree, const std::string& path) {
    auto project = std::make_unique<host::LegacyProject>(from_utf8(path));
    fill(project->root(), tree, "tree");
    return project;
}

}  // namespace scenario
