#include "player/stored_slots.h"

#include <cstdint>
#include <cstdlib>

namespace player {

namespace {

constexpr std::size_t slot_count = 8;

std::string key_of(std::size_t slot, const char* suffix) {
    return "m_gui_logfonts_for_loading" + std::to_string(slot) + suffix;
}

template <class T>
T value_of(const host::ProjectNode& node, const std::string& key, T otherwise) {
    const host::PropertyValue* value = node.find(key);
    const T* held = value ? std::get_if<T>(value) : nullptr;
    return held ? *held : otherwise;
}

host::ProjectNode* setting_of(const host::ProjectDocument& document) {
    for (const auto& module : document.modules.children()) {
        if (host::ProjectNode* setting = module->child("SimpleGUIEnvSetting")) return setting;
    }
    return nullptr;
}

}  // namespace

std::vector<StoredSlot> stored_slots(const host::ProjectDocument& document) {
    std::vector<StoredSlot> slots;
    const host::ProjectNode* setting = setting_of(document);
    for (std::size_t slot = 0; setting && slot < slot_count; ++slot) {
        StoredSlot& stored = slots.emplace_back();
        // A setting of before there were fonts has no records; in a record a face that is missing is an empty one.
        const tstringW without_face = setting->find(key_of(0, "lfHeight")) ? L"" : L"Default";
        stored.wish.face = value_of<tstringW>(*setting, key_of(slot, "lfFaceName"), without_face);
        stored.wish.weight = value_of(*setting, key_of(slot, "lfWeight"), 0);
        stored.size = static_cast<unsigned>(std::abs(std::int64_t{value_of(*setting, key_of(slot, "lfHeight"), 0)}));
        // The field is the low byte of its word.
        stored.wish.italic = (value_of(*setting, key_of(slot, "lfItalic"), 0) & 0xFF) != 0;
        stored.file = value_of<tstringW>(*setting, key_of(slot, "FontFileName"), {});
    }
    return slots;
}

void store_file(host::ProjectDocument& document, std::size_t slot, const std::wstring& file) {
    if (host::ProjectNode* setting = setting_of(document)) setting->set(key_of(slot, "FontFileName"), tstringW(file));
}

}  // namespace player
