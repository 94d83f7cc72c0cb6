#include "player/legacy_keys.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string_view>

#include "host/core/legacy_value.h"
#include "host/core/text_conversion.h"

namespace player {

namespace {

using host::LegacyNode;

constexpr LegacyKey top_keys[] = {
    {"GUI", 0, KEY_OPTIONAL}, {"UIStages", 0, KEY_OPTIONAL}, {"Timebar", 0, KEY_OPTIONAL}};

constexpr LegacyKey gui_keys[] = {{"Root Dialog", 0, KEY_OPTIONAL}, {"Dialogs", 0, KEY_OPTIONAL}};
constexpr LegacyKey root_dialog_keys[] = {{"ROOT", 0, KEY_OPTIONAL}};
constexpr LegacyKey timebar_keys[] = {{"BARS", 0, KEY_OPTIONAL}};

constexpr LegacyKey root_keys[] = {
    {"WIDTH", LEGACY_INT, KEY_REQUIRED},        {"HEIGHT", LEGACY_INT, KEY_REQUIRED},
    {"m_iAlignType", LEGACY_INT, KEY_REQUIRED}, {"m_offsetx", LEGACY_INT, KEY_REQUIRED},
    {"m_offsety", LEGACY_INT, KEY_REQUIRED},    {"GUID", LEGACY_GUID, KEY_REQUIRED},
    {"POSX", LEGACY_INT, KEY_NOT_USED},         {"POSY", LEGACY_INT, KEY_NOT_USED},
    {"Flag", LEGACY_INT, KEY_REQUIRED},         {"Controls", 0, KEY_OPTIONAL},
};

constexpr LegacyKey dialog_keys[] = {
    {"m_iAlignType", LEGACY_INT, KEY_REQUIRED},
    {"m_offsetx", LEGACY_INT, KEY_REQUIRED},
    {"m_offsety", LEGACY_INT, KEY_REQUIRED},
    {"POSX", LEGACY_INT, KEY_REQUIRED},
    {"POSY", LEGACY_INT, KEY_REQUIRED},
    {"WIDTH", LEGACY_INT, KEY_REQUIRED},
    {"HEIGHT", LEGACY_INT, KEY_REQUIRED},
    {"GUID", LEGACY_GUID, KEY_REQUIRED},
    {"ScaleMode", LEGACY_INT, KEY_OPTIONAL},
    {"Flag", LEGACY_INT, KEY_REQUIRED},
    {"Controls", 0, KEY_OPTIONAL},
};

constexpr LegacyKey control_keys[] = {
    {"Align", LEGACY_INT, KEY_REQUIRED},   {"offsetx", LEGACY_INT, KEY_REQUIRED},
    {"offsety", LEGACY_INT, KEY_REQUIRED}, {"ScaleMode", LEGACY_INT, KEY_OPTIONAL},
    {"NAME", LEGACY_NAME, KEY_OPTIONAL},   {"Caption", LEGACY_TEXT, KEY_OPTIONAL},
    {"VISIBLE", LEGACY_INT, KEY_REQUIRED}, {"POSX", LEGACY_INT, KEY_REQUIRED},
    {"POSY", LEGACY_INT, KEY_REQUIRED},    {"WIDTH", LEGACY_INT, KEY_REQUIRED},
    {"HEIGHT", LEGACY_INT, KEY_REQUIRED},  {"GUID", LEGACY_GUID, KEY_REQUIRED},
    {"Type", LEGACY_INT, KEY_REQUIRED},    {"BKIMAGE", LEGACY_INT, KEY_REQUIRED},
    {"Texture", 0, KEY_OPTIONAL},          {"Texture0", 0, KEY_OPTIONAL},
    {"Texture1", 0, KEY_OPTIONAL},         {"Texture2", 0, KEY_OPTIONAL},
};

constexpr LegacyKey picture_keys[] = {{"FILENAME", LEGACY_PATH, KEY_REQUIRED}};

constexpr LegacyKey panel_keys[] = {
    {"id", LEGACY_GUID, KEY_REQUIRED},
    {"visible", LEGACY_INT, KEY_OPTIONAL},
    {"panel_pos", 0, KEY_OPTIONAL},
    {"panel_type", LEGACY_INT, KEY_OPTIONAL},
    {"color", LEGACY_INT, KEY_OPTIONAL},
    {"ENABLE_TRANSP", LEGACY_INT, KEY_OPTIONAL},
    {"TRANS_FACTOR", LEGACY_INT, KEY_OPTIONAL},
    {"TRANSP_TYPE", LEGACY_INT, KEY_OPTIONAL},
    {"text_buf", 0, KEY_OPTIONAL},
    {"text_color", LEGACY_INT, KEY_OPTIONAL},
    {"text_format", LEGACY_INT, KEY_OPTIONAL},
    {"text_font_idx", LEGACY_INT, KEY_OPTIONAL},
    {"texture", 0, KEY_OPTIONAL},
};

constexpr LegacyKey place_keys[] = {
    {"locate_mode", LEGACY_INT, KEY_OPTIONAL},      {"align_mode", LEGACY_INT, KEY_OPTIONAL},
    {"offset_in_pixel", LEGACY_VEC3, KEY_OPTIONAL}, {"size_in_pixel", LEGACY_PAIR, KEY_OPTIONAL},
    {"percent_left", LEGACY_FLOAT, KEY_OPTIONAL},   {"percent_top", LEGACY_FLOAT, KEY_OPTIONAL},
    {"percent_right", LEGACY_FLOAT, KEY_OPTIONAL},  {"percent_bottom", LEGACY_FLOAT, KEY_OPTIONAL},
};

constexpr LegacyKey bar_keys[] = {{"TYPE", LEGACY_INT, KEY_OPTIONAL}, {"CMDS", 0, KEY_OPTIONAL}};

constexpr LegacyKey command_keys[] = {
    {"TYPE", LEGACY_INT, KEY_REQUIRED}, {"CTRL", LEGACY_GUID, KEY_OPTIONAL}, {"DLG", LEGACY_GUID, KEY_OPTIONAL},
    {"ID", LEGACY_GUID, KEY_OPTIONAL},  {"KEYS", 0, KEY_OPTIONAL},
};

constexpr LegacyKey plain_key_keys[] = {
    {"TIME", LEGACY_INT, KEY_MOMENT},           {"m_offset_x", LEGACY_FLOAT, KEY_OPTIONAL},
    {"m_offset_y", LEGACY_FLOAT, KEY_OPTIONAL}, {"m_sizex", LEGACY_FLOAT, KEY_OPTIONAL},
    {"m_sizey", LEGACY_FLOAT, KEY_OPTIONAL},    {"m_bVisible", LEGACY_INT, KEY_OPTIONAL},
    {"iAlignType", LEGACY_INT, KEY_OPTIONAL},   {"m_bScaleMode", LEGACY_INT, KEY_OPTIONAL},
};

constexpr LegacyKey panel_key_keys[] = {
    {"TIME", LEGACY_INT, KEY_MOMENT},
    {"POS", 0, KEY_OPTIONAL},
    {"COLOR", LEGACY_INT, KEY_OPTIONAL},
    {"ALPHA", LEGACY_INT, KEY_OPTIONAL},
};
constexpr LegacyKey key_pos_keys[] = {{"panel_pos", 0, KEY_OPTIONAL}};

template <class T>
T value_of(const LegacyNode* node, const char* key, int code, T missing) {
    const LegacyNode* found = node ? node->child(key) : nullptr;
    if (found) host::copy_legacy_value(found->data, found->code, code, &missing);
    return missing;
}

bool is_readable(const LegacyNode& value, int code) {
    char16_t buffer[legacy_buffer_units(LEGACY_PATH)];
    return !value.data.empty() && host::copy_legacy_value(value.data, value.code, code, buffer);
}

// A float without a limit, or one that is no number, counts as missing wherever it stands.
bool is_finite(const LegacyNode& value, const LegacyKey& key) {
    VEC3 floats;
    if (key.code != LEGACY_FLOAT && key.code != LEGACY_VEC3 && key.use != KEY_MOMENT) return true;
    host::copy_legacy_value(value.data, value.code, key.code, &floats);
    return std::isfinite(floats.x) && std::isfinite(floats.y) && std::isfinite(floats.z);
}

bool is_cut(const LegacyNode& value, int code) {
    const std::size_t most = legacy_buffer_units(code);
    if (most == 0) return false;
    std::u16string kept(most, u'\0');
    host::copy_legacy_value(value.data, value.code, code, kept.data());
    // A text that fits keeps its zero within the buffer, and all that stands ahead of it.
    const std::size_t length = kept.find(u'\0');
    const std::size_t next = length * sizeof(char16_t);
    return value.data.size() >= next + 2 && (value.data[next] != 0 || value.data[next + 1] != 0);
}

const char* without(int code) {
    if (legacy_buffer_units(code) > 0) return "it is empty";
    return code == LEGACY_GUID ? "it has no identifier" : "0 stands for it";
}

}  // namespace

std::span<const LegacyKey> legacy_top_keys() { return top_keys; }
std::span<const LegacyKey> legacy_gui_keys() { return gui_keys; }
std::span<const LegacyKey> legacy_root_dialog_keys() { return root_dialog_keys; }
std::span<const LegacyKey> legacy_timebar_keys() { return timebar_keys; }
std::span<const LegacyKey> legacy_root_keys() { return root_keys; }
std::span<const LegacyKey> legacy_dialog_keys() { return dialog_keys; }
std::span<const LegacyKey> legacy_control_keys() { return control_keys; }
std::span<const LegacyKey> legacy_picture_keys() { return picture_keys; }
std::span<const LegacyKey> legacy_panel_keys() { return panel_keys; }
std::span<const LegacyKey> legacy_place_keys() { return place_keys; }
std::span<const LegacyKey> legacy_bar_keys() { return bar_keys; }
std::span<const LegacyKey> legacy_command_keys() { return command_keys; }
std::span<const LegacyKey> legacy_plain_key_keys() { return plain_key_keys; }
std::span<const LegacyKey> legacy_panel_key_keys() { return panel_key_keys; }
std::span<const LegacyKey> legacy_key_pos_keys() { return key_pos_keys; }

void check_legacy_keys(const LegacyNode& node, std::span<const LegacyKey> keys,
                       const std::function<void(const LegacyNode& at, const std::string& text)>& tell) {
    for (const LegacyKey& key : keys) {
        const LegacyNode* value = node.child(key.name);
        const std::string name = key.name;
        if (!value && (key.use == KEY_REQUIRED || key.use == KEY_MOMENT))
            tell(node, name + " is missing: " + without(key.code));
        if (!value || key.code == 0 || key.use == KEY_NOT_USED) continue;
        if (!is_readable(*value, key.code)) {
            tell(*value, name + " can't be read (" + std::to_string(value->data.size()) + " bytes of code " +
                             std::to_string(value->code) + ", expected code " + std::to_string(key.code) +
                             "): it counts as missing");
        } else if (!is_finite(*value, key)) {
            tell(*value, name + " is no number with a limit: it counts as missing");
        } else if (is_cut(*value, key.code)) {
            tell(*value, name + " is cut to " + std::to_string(legacy_buffer_units(key.code) - 1) + " characters");
        }
    }
    std::set<std::string_view> seen;
    for (CPakNode* child : node.children()) {
        if (!child) continue;
        const LegacyNode& found = *host::legacy_node(child);
        const bool is_known =
            std::any_of(keys.begin(), keys.end(), [&](const LegacyKey& key) { return found.name == key.name; });
        if (!is_known) tell(found, "\"" + found.name + "\" is nothing that the new format has: dropped");
        if (is_known && !seen.insert(found.name).second) tell(found, found.name + " stands a second time: dropped");
    }
}

int legacy_int(const LegacyNode* node, const char* key, int missing) {
    return value_of(node, key, LEGACY_INT, missing);
}

CGuid legacy_guid(const LegacyNode& node, const char* key) { return value_of(&node, key, LEGACY_GUID, CGuid()); }

tstringW legacy_text(const LegacyNode& node, const char* key, legacy_code code) {
    const LegacyNode* found = node.child(key);
    char16_t buffer[legacy_buffer_units(LEGACY_PATH)] = {};
    if (!found || !host::copy_legacy_value(found->data, found->code, code, buffer)) return {};
    const std::u16string units = buffer;
    const auto content = host::legacy_content(
        code, {reinterpret_cast<const char*>(units.c_str()), (units.size() + 1) * sizeof(char16_t)});
    return content ? std::get<tstringW>(*content) : tstringW();
}

}  // namespace player
