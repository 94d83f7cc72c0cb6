#include "player/findings.h"

#include <cmath>
#include <filesystem>
#include <map>
#include <set>
#include <unordered_map>

#include "engine/numbers.h"
#include "host/core/font_face.h"
#include "host/core/native_path.h"
#include "host/core/picture_file.h"
#include "host/core/text_conversion.h"

namespace player {

namespace {

namespace fs = std::filesystem;
using host::ProjectAnimation;
using host::ProjectAnimNode;
using host::ProjectDocument;
using host::ProjectItem;
using host::ProjectNode;

constexpr int slot_count = 8;

template <class T>
const T* value_of(const ProjectNode& node, const std::string& key) {
    const host::PropertyValue* value = node.find(key);
    return value ? std::get_if<T>(value) : nullptr;
}

int int_of(const ProjectNode& node, const std::string& key, int otherwise) {
    const int* value = value_of<int>(node, key);
    return value ? *value : otherwise;
}

/// The range of a field beyond which it has a fall-back that no author wants.
struct Range {
    unsigned long type;
    const char* key;
    int least;
    int most;
    const char* meaning;
};
constexpr Range ranges[] = {
    {ITEM_TYPE_DIALOG, "m_iAlignType", 0, 8, "it has no anchor and keeps its place"},
    {ITEM_TYPE_SHAPE, "m_iAlignType", 0, 8, "it has no anchor and keeps its place"},
    {ITEM_TYPE_SHAPE, "m_font_org_position", 0, 11, "its text has no anchor"},
    {ITEM_TYPE_SHAPE, "m_font_type", 0, slot_count - 1, "its text is drawn in the default font"},
};

bool is_element(unsigned long type) { return type == ITEM_TYPE_DIALOG || type == ITEM_TYPE_SHAPE; }

// Whether the host can draw with the file at that size.
bool can_be_shown(const fs::path& file, unsigned size) {
    const std::u8string path = file.u8string();
    return IBaseFont::Face::from_file(from_utf8(std::string(path.begin(), path.end())).c_str(), size)->font != nullptr;
}

class Search {
public:
    Search(const ProjectDocument& document, const std::string& path)
        : m_document(document), m_path(path), m_folder(fs::path(path).parent_path().string()) {
        for (const ProjectItem& item : document.items) m_by_id.emplace(item.id.to_text(), &item);
    }

    std::vector<Finding> all(const FontFinder& find_font) {
        for (const ProjectItem& item : m_document.items) look_at(item);
        if (m_unnumbered && m_numbered) {
            add(*m_unnumbered, "has no order number while other dialogs have one: the order stays as loaded");
        }
        for (const ProjectAnimation& animation : m_document.animations) look_at(animation);
        look_at_fonts(find_font);
        return std::move(m_findings);
    }

private:
    void add(const ProjectItem& item, std::string text) {
        m_findings.push_back({item.line, item.name, std::move(text)});
    }

    void look_at(const ProjectAnimation& animation) {
        const auto add_here = [&](std::string text) {
            m_findings.push_back({animation.line, animation.name, std::move(text)});
        };
        const anim_info& info = animation.info;
        if (!m_animation_names.insert(animation.name).second) {
            add_here("has the name of an animation further up: scripts reach that one alone");
        }
        if (!(info.length > 0.0f) || !std::isfinite(info.length)) {
            add_here("has no length: it shows its first moment alone");
        }
        if (info.mode_count == 0) add_here("plays 0 times: it shows its first moment alone");
        if (info.factor == 0.0f || !std::isfinite(info.factor)) add_here("has no speed: it stands still");
        for (const ProjectAnimNode& node : animation.nodes) look_at(animation, node);
    }

    void look_at(const ProjectAnimation& animation, const ProjectAnimNode& node) {
        const auto moved = m_by_id.find(node.item.to_text());
        const bool is_known = !node.item.is_empty() && moved != m_by_id.end();
        if (is_known && is_element(moved->second->type)) return;
        const std::string item = is_known ? "\"" + to_utf8(moved->second->name) + "\" is neither a dialog nor a shape"
                                          : "there is no item " + to_utf8(node.item.to_text());
        m_findings.push_back({node.line, animation.name, "a node moves nothing: " + item});
    }

    void look_at(const ProjectItem& item) {
        if (!is_element(item.type)) return;
        for (const Range& range : ranges) {
            if (range.type != item.type || !is_in_force(item, range)) continue;
            const int value = int_of(item.data, range.key, range.least);
            if (value >= range.least && value <= range.most) continue;
            add(item, std::string(range.key) + " is " + std::to_string(value) + ", not " + std::to_string(range.least) +
                          " to " + std::to_string(range.most) + ": " + range.meaning);
        }
        if (item.type == ITEM_TYPE_SHAPE) look_at_shape(item);
        look_at_order(item);
        for (const char* key : {"m_texture", "m_texture_hover", "m_texture_down"}) look_at_picture(item, key);
    }

    // A scaled element takes its place from fractions; imported ones also say so in the place of an anchor.
    static bool is_in_force(const ProjectItem& item, const Range& range) {
        const auto* scale = value_of<host::StoredBool>(item.data, "m_bScaleMode");
        return std::string_view(range.key) != "m_iAlignType" || !scale || scale->value == 0;
    }

    void look_at_shape(const ProjectItem& item) {
        const auto parent = m_by_id.find(item.parent.to_text());
        if (item.parent.is_empty() || parent == m_by_id.end()) {
            add(item, "is a shape without a dialog: it is never seen");
        } else if (parent->second->type != ITEM_TYPE_DIALOG) {
            add(item,
                "is a shape under \"" + to_utf8(parent->second->name) + "\", which is no dialog: it is never seen");
        }
    }

    void look_at_order(const ProjectItem& item) {
        const int order = int_of(item.data, "m_order_num", -1);
        const bool is_dialog = item.type == ITEM_TYPE_DIALOG;
        if (is_dialog) (order == -1 ? m_unnumbered : m_numbered) = &item;
        if (is_dialog && order == -1) return;
        const std::wstring siblings = is_dialog ? std::wstring() : item.parent.to_text();
        const auto [former, is_new] = m_by_order.try_emplace({siblings, order}, &item);
        if (is_new) return;
        add(item, "has the order number " + std::to_string(order) + " of \"" + to_utf8(former->second->name) +
                      "\": it is not shown");
    }

    void look_at_picture(const ProjectItem& item, const char* key) {
        const ProjectNode* picture = item.data.child(key);
        const tstringW* file = picture ? value_of<tstringW>(*picture, "file_name") : nullptr;
        if (!file) return;
        const auto [known, is_new] = m_pictures.try_emplace(*file, false);
        const fs::path path = host::native_path(from_utf8(m_folder)) / host::native_path(*file);
        if (is_new) known->second = host::read_picture(path) != nullptr;
        if (known->second) return;
        std::error_code ignored;
        add(item, std::string(key) + ": \"" + to_utf8(*file) + "\" " +
                      (fs::exists(path, ignored) ? "is no picture" : "is missing"));
    }

    // Beside the project stands what its slots name, in its folder or among what was published. Empty for none.
    fs::path beside_project(const std::wstring& file) const {
        const fs::path project = host::native_path(from_utf8(m_path));
        fs::path published = project.parent_path() / project.stem();
        published += "_textures";
        std::error_code ignored;
        for (const fs::path& folder : {project.parent_path(), published}) {
            fs::path candidate = folder / host::native_path(file);
            if (!file.empty() && fs::is_regular_file(candidate, ignored)) return candidate;
        }
        return {};
    }

    void look_at_font(std::size_t slot, const StoredSlot& stored, const FontFinder& find_font) {
        const std::string name = "the font \"" + to_utf8(stored.wish.face) + "\" of slot " + std::to_string(slot);
        const fs::path copy = beside_project(stored.file);
        const fs::path listed = host::native_path(from_utf8(find_font(stored.wish)));
        std::error_code ignored;
        const bool is_installed = fs::is_regular_file(listed, ignored);
        const fs::path& shown = is_installed ? listed : copy;
        if (!shown.empty() && !can_be_shown(shown, stored.size)) {
            m_findings.push_back({0,
                                  {},
                                  name + " can't be shown in " + std::to_string(stored.size) + " pixels from \"" +
                                      shown.string() + "\": its texts stay empty"});
        }
        if (copy.empty()) add_missing_copy(name, stored, is_installed);
    }

    void add_missing_copy(const std::string& name, const StoredSlot& stored, bool is_installed) {
        const char* fault = stored.file.empty()
                                ? " has no file name in the project, so that a copy beside it is not found"
                                : " is not beside the project";
        const char* effect = is_installed
                                 ? ": where it is not installed, this slot and all behind it show the default font"
                                 : ", nor is it installed here: this slot and all behind it show the default font";
        m_findings.push_back({0, {}, name + fault + effect + " (sgui publish mends that where it can)"});
    }

    void look_at_fonts(const FontFinder& find_font) {
        const std::vector<StoredSlot> slots = stored_slots(m_document);
        for (std::size_t slot = 0; slot < slots.size(); ++slot) {
            if (!slots[slot].is_default()) look_at_font(slot, slots[slot], find_font);
        }
    }

    const ProjectDocument& m_document;
    std::string m_path;
    std::string m_folder;
    std::vector<Finding> m_findings;
    std::unordered_map<std::wstring, const ProjectItem*> m_by_id;
    std::map<std::pair<std::wstring, int>, const ProjectItem*> m_by_order;
    std::map<std::wstring, bool> m_pictures;
    std::set<std::wstring> m_animation_names;
    const ProjectItem* m_numbered = nullptr;
    const ProjectItem* m_unnumbered = nullptr;
};

}  // namespace

std::vector<Finding> find_problems(const ProjectDocument& document, const std::string& path,
                                   const FontFinder& find_font) {
    return Search(document, path).all(find_font);
}

}  // namespace player
