#include "player/findings.h"

#include <filesystem>
#include <map>
#include <unordered_map>

#include "engine/numbers.h"
#include "host/core/native_path.h"
#include "host/core/picture_file.h"
#include "host/core/text_conversion.h"

namespace player {

namespace {

namespace fs = std::filesystem;
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

class Search {
public:
    Search(const ProjectDocument& document, std::string folder) : m_document(document), m_folder(std::move(folder)) {
        for (const ProjectItem& item : document.items) m_by_id.emplace(item.id.to_text(), &item);
    }

    std::vector<Finding> all() {
        for (const ProjectItem& item : m_document.items) look_at(item);
        if (m_unnumbered && m_numbered) {
            add(*m_unnumbered, "has no order number while other dialogs have one: the order stays as loaded");
        }
        look_at_fonts();
        return std::move(m_findings);
    }

private:
    void add(const ProjectItem& item, std::string text) {
        m_findings.push_back({item.line, item.name, std::move(text)});
    }

    void look_at(const ProjectItem& item) {
        if (item.type != ITEM_TYPE_DIALOG && item.type != ITEM_TYPE_SHAPE) return;
        for (const Range& range : ranges) {
            if (range.type != item.type) continue;
            const int value = int_of(item.data, range.key, range.least);
            if (value >= range.least && value <= range.most) continue;
            add(item, std::string(range.key) + " is " + std::to_string(value) + ", not " + std::to_string(range.least) +
                          " to " + std::to_string(range.most) + ": " + range.meaning);
        }
        if (item.type == ITEM_TYPE_SHAPE) look_at_shape(item);
        look_at_order(item);
        for (const char* key : {"m_texture", "m_texture_hover", "m_texture_down"}) look_at_picture(item, key);
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

    // A slot whose font is neither the default nor beside the project falls back, and so do all behind it.
    void look_at_fonts() {
        for (const auto& module : m_document.modules.children()) {
            const ProjectNode* setting = module->child("SimpleGUIEnvSetting");
            for (int slot = 0; setting && slot < slot_count; ++slot) {
                const std::string prefix = "m_gui_logfonts_for_loading" + std::to_string(slot);
                const tstringW* face = value_of<tstringW>(*setting, prefix + "lfFaceName");
                const tstringW* file = value_of<tstringW>(*setting, prefix + "FontFileName");
                if (!face || *face == L"Default" || (file && is_beside_project(*file))) continue;
                m_findings.push_back({0,
                                      {},
                                      "the font \"" + to_utf8(*face) + "\" of slot " + std::to_string(slot) +
                                          " is not beside the project: where the system lacks it, this slot and"
                                          " all behind it show the default font"});
            }
        }
    }

    bool is_beside_project(const tstringW& file) const {
        std::error_code ignored;
        return !file.empty() &&
               fs::is_regular_file(host::native_path(from_utf8(m_folder)) / host::native_path(file), ignored);
    }

    const ProjectDocument& m_document;
    std::string m_folder;
    std::vector<Finding> m_findings;
    std::unordered_map<std::wstring, const ProjectItem*> m_by_id;
    std::map<std::pair<std::wstring, int>, const ProjectItem*> m_by_order;
    std::map<std::wstring, bool> m_pictures;
    const ProjectItem* m_numbered = nullptr;
    const ProjectItem* m_unnumbered = nullptr;
};

}  // namespace

std::vector<Finding> find_problems(const ProjectDocument& document, const std::string& folder) {
    return Search(document, folder).all();
}

}  // namespace player
