#pragma once

#include <functional>
#include <span>
#include <string>

#include "engine/guid.h"
#include "engine/legacy_codes.h"
#include "host/core/legacy_tree.h"

namespace player {

enum LegacyKeyUse : int {
    KEY_OPTIONAL,
    KEY_REQUIRED,
    /// Required, and a float in a whole number's place.
    KEY_MOMENT,
    KEY_NOT_USED
};

/// A key that a kind of legacy node may have.
struct LegacyKey {
    const char* name;
    /// A legacy_code; 0: the key is a node of its own.
    int code;
    LegacyKeyUse use;
};

std::span<const LegacyKey> legacy_top_keys();
std::span<const LegacyKey> legacy_gui_keys();
std::span<const LegacyKey> legacy_root_dialog_keys();
std::span<const LegacyKey> legacy_timebar_keys();
std::span<const LegacyKey> legacy_root_keys();
std::span<const LegacyKey> legacy_dialog_keys();
std::span<const LegacyKey> legacy_control_keys();
std::span<const LegacyKey> legacy_picture_keys();
std::span<const LegacyKey> legacy_panel_keys();
std::span<const LegacyKey> legacy_place_keys();
std::span<const LegacyKey> legacy_bar_keys();
std::span<const LegacyKey> legacy_command_keys();
std::span<const LegacyKey> legacy_plain_key_keys();
std::span<const LegacyKey> legacy_panel_key_keys();
std::span<const LegacyKey> legacy_key_pos_keys();

/// Tells of every key that is missing, can't be read, is cut, stands twice or has no place in the table. The text says
/// what comes of it.
void check_legacy_keys(const host::LegacyNode& node, std::span<const LegacyKey> keys,
                       const std::function<void(const host::LegacyNode& at, const std::string& text)>& tell);

/// The value under the key as the module reads it; `missing` for none. Null nodes have no keys.
int legacy_int(const host::LegacyNode* node, const char* key, int missing = 0);
CGuid legacy_guid(const host::LegacyNode& node, const char* key);
tstringW legacy_text(const host::LegacyNode& node, const char* key, legacy_code code);

}  // namespace player
