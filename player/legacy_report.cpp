#include "player/legacy_report.h"

#include <algorithm>
#include <set>

#include "engine/services.h"
#include "host/core/native_path.h"
#include "host/core/picture_file.h"
#include "host/core/text_conversion.h"
#include "layout/anchors.h"
#include "legacy/animation_settings.h"
#include "legacy/controls.h"
#include "legacy/names.h"
#include "legacy/rects.h"
#include "legacy/text_format.h"
#include "player/legacy_keys.h"

namespace player {

namespace {

using host::LegacyNode;

constexpr int last_font = 7;
constexpr int last_bar_type = 3;

class Search {
public:
    explicit Search(const host::LegacyProject& project) : m_project(project) {
        const tstringW path = project.get_full_filename();
        m_folder =
            filefun::get_file_path(path.c_str()) + filefun::get_pure_filename(path.c_str(), false) + L"_textures/";
    }

    std::vector<Finding> all() {
        const LegacyNode& top = m_project.root();
        check_keys(top, {}, legacy_top_keys());
        if (!top.child("GUI") && !top.child("UIStages") && !top.child("Timebar"))
            add(top, {}, "there is neither GUI nor UIStages nor Timebar: nothing to bring over");
        look_at_plain(top.child("GUI"));
        each(top.child("UIStages"), [this](const LegacyNode& stage) { look_at_stage(stage); });
        if (const LegacyNode* timebar = top.child("Timebar")) {
            check_keys(*timebar, {}, legacy_timebar_keys());
            each(timebar->child("BARS"), [this](const LegacyNode& bar) { look_at_bar(bar); });
        }
        // As whoever goes through the file meets them.
        std::stable_sort(m_findings.begin(), m_findings.end(),
                         [](const Finding& a, const Finding& b) { return a.line < b.line; });
        return std::move(m_findings);
    }

private:
    void add(const LegacyNode& at, const std::wstring& item, std::string text) {
        m_findings.push_back({at.line, item, std::move(text)});
    }

    void check_keys(const LegacyNode& node, const std::wstring& item, std::span<const LegacyKey> keys) {
        check_legacy_keys(node, keys, [&](const LegacyNode& at, const std::string& text) { add(at, item, text); });
    }

    template <class Visit>
    static void each(const LegacyNode* node, Visit visit) {
        if (!node) return;
        for (CPakNode* child : node->children())
            if (child) visit(*host::legacy_node(child));
    }

    // ---- The plain layout ----

    void look_at_plain(const LegacyNode* gui) {
        if (!gui) return;
        check_keys(*gui, {}, legacy_gui_keys());
        const LegacyNode* root_dialog = gui->child("Root Dialog");
        if (root_dialog) check_keys(*root_dialog, LEGACY_ROOT_DIALOG, legacy_root_dialog_keys());
        if (const LegacyNode* root = root_dialog ? root_dialog->child("ROOT") : nullptr) {
            check_keys(*root, LEGACY_ROOT_DIALOG, legacy_root_keys());
            int count = 0;
            each(root->child("Controls"), [&](const LegacyNode& control) { ++count, look_at_control(control); });
            if (count == 0) add(*root, LEGACY_ROOT_DIALOG, "the root dialog holds nothing: dropped");
        }
        each(gui->child("Dialogs"), [this](const LegacyNode& dialog) { look_at_dialog(dialog); });
    }

    void look_at_dialog(const LegacyNode& dialog) {
        const tstringW name = dialog.get_name();
        check_keys(dialog, name, legacy_dialog_keys());
        enter_id(dialog, name, "GUID");
        look_at_alignment(dialog, name, "m_iAlignType");
        each(dialog.child("Controls"), [this](const LegacyNode& control) { look_at_control(control); });
    }

    void look_at_control(const LegacyNode& control) {
        const tstringW name = legacy_text(control, "NAME", LEGACY_NAME);
        check_keys(control, name, legacy_control_keys());
        enter_id(control, name, "GUID");
        look_at_alignment(control, name, "Align");
        if (legacy_int(&control, "Align") == ALIGN_SCALE && legacy_int(&control, "ScaleMode") == 0)
            add(control, name, "Align is 9 without ScaleMode: it keeps its place whatever size its dialog takes");
        const int type = legacy_int(&control, "Type");
        const LegacyControl* kind = find_legacy_control(type);
        if (!kind) {
            add(control, name,
                "Type " + std::to_string(type) + " is unknown: it gets no pictures and a new control's look");
            return;
        }
        for (const char* key : kind->pictures) look_at_picture(control, name, key);
        for (const char* key : {"Texture", "Texture0", "Texture1", "Texture2"}) {
            const bool is_shown = std::any_of(std::begin(kind->pictures), std::end(kind->pictures),
                                              [key](const char* shown) { return shown && key == std::string(shown); });
            if (is_shown || !control.child(key)) continue;
            add(*control.child(key), name,
                std::string(key) + ": a control of Type " + std::to_string(type) + " has no such picture: dropped");
        }
    }

    void look_at_alignment(const LegacyNode& node, const std::wstring& item, const char* key) {
        const int align = legacy_int(&node, key);
        if (has_anchor(align) || align == ALIGN_SCALE) return;
        add(node, item, std::string(key) + " is " + std::to_string(align) + ", not 0 to 9: it has no anchor");
    }

    // ---- The primary layout ----

    void look_at_stage(const LegacyNode& stage) {
        const tstringW name = stage.get_name();
        if (name == LEGACY_LOADING_STAGE) {
            add(stage, name, "the stage of the loading screen is dropped");
            return;
        }
        int count = 0;
        each(&stage, [&](const LegacyNode& panel) {
            if (is_legacy_panel(panel.get_name())) {
                ++count;
                look_at_panel(panel);
            } else if (panel.data.empty()) {
                add(panel, name, "\"" + panel.name + "\" was a tool of the old editor: dropped");
            }
        });
        if (count == 0 && name == LEGACY_MAIN_STAGE) add(stage, name, "the main stage holds nothing: dropped");
    }

    void look_at_panel(const LegacyNode& panel) {
        const tstringW name = panel.get_name();
        check_keys(panel, name, legacy_panel_keys());
        enter_id(panel, name, "id");
        if (const LegacyNode* place = panel.child("panel_pos")) {
            look_at_place(*place, name);
        } else {
            add(panel, name, "panel_pos is missing: it has no size");
        }
        if (legacy_int(&panel, "ENABLE_TRANSP") != 0 && legacy_int(&panel, "TRANSP_TYPE") != 1)
            add(panel, name, "TRANSP_TYPE is not 1: it is opaque in spite of ENABLE_TRANSP");
        const LegacyNode* text = panel.child("text_buf");
        if (text && text->data.size() % 2 != 0) add(*text, name, "text_buf has half a character at its end: dropped");
        const int format = legacy_int(&panel, "text_format");
        if (!is_legacy_text_format(format))
            add(panel, name, "text_format " + std::to_string(format) + " is unknown: its text stands in the centre");
        const int font = legacy_int(&panel, "text_font_idx");
        if (font < 0 || font > last_font)
            add(panel, name, "text_font_idx is " + std::to_string(font) + ", not 0 to 7: it gets font 0");
        if (look_at_picture(panel, name, "texture"))
            add(panel, name, "texture: dropped, a panel shows no missing picture");
    }

    void look_at_place(const LegacyNode& place, const std::wstring& item) {
        check_keys(place, item, legacy_place_keys());
        const int align = legacy_int(&place, "align_mode");
        if (legacy_int(&place, "locate_mode") == 1 || has_panel_anchor(align)) return;
        add(place, item, "align_mode is " + std::to_string(align) + ", not 1 to 9: it goes to the left top corner");
    }

    // ---- Pictures and identifiers ----

    // True where there is a picture of that key that can't be shown.
    bool look_at_picture(const LegacyNode& node, const std::wstring& item, const char* key) {
        const LegacyNode* picture = key ? node.child(key) : nullptr;
        if (!picture) return false;
        check_keys(*picture, item, legacy_picture_keys());
        const tstringW stored = legacy_text(*picture, "FILENAME", LEGACY_PATH);
        const std::wstring places[] = {stored, m_folder + stored,
                                       m_folder + filefun::get_pure_filename(stored.c_str(), true)};
        for (const std::wstring& place : places) {
            if (!filefun::file_exist(place.c_str())) continue;
            if (host::read_picture(host::native_path(place))) return false;
            add(*picture, item, std::string(key) + ": \"" + to_utf8(place) + "\" is no picture");
            return true;
        }
        add(*picture, item,
            std::string(key) + ": \"" + to_utf8(stored) + "\" is missing, there and in \"" + to_utf8(m_folder) + "\"");
        return true;
    }

    void enter_id(const LegacyNode& node, const std::wstring& item, const char* key) {
        const CGuid id = legacy_guid(node, key);
        if (m_ids.insert(id).second || id.is_empty()) return;
        add(node, item,
            std::string(key) + " " + to_utf8(id.to_text()) +
                " stands further up too: animations move the first, and it gets a new one when the project is saved");
    }

    // ---- Animations ----

    void look_at_bar(const LegacyNode& bar) {
        const tstringW name = bar.get_name();
        check_keys(bar, name, legacy_bar_keys());
        const int type = legacy_int(&bar, "TYPE");
        if (type < 0 || type > last_bar_type)
            add(bar, name, "an animation of TYPE " + std::to_string(type) + " is unknown: it plays without an end");
        if (!bar.child("CMDS")) add(bar, name, "an animation has no CMDS: it moves nothing");
        each(bar.child("CMDS"), [&](const LegacyNode& command) { look_at_command(command, name); });
    }

    void look_at_command(const LegacyNode& command, const std::wstring& item) {
        const int type = legacy_int(&command, "TYPE");
        const LegacyCommand* kind = find_legacy_command(type);
        if (!kind) {
            add(command, item, "a command of TYPE " + std::to_string(type) + " is unknown: dropped");
            return;
        }
        check_keys(command, item, legacy_command_keys());
        const CGuid id = legacy_guid(command, kind->id_key);
        if (!m_ids.contains(id))
            add(command, item, "a command moves nothing: there is no item " + to_utf8(id.to_text()));
        const LegacyNode* keys = command.child("KEYS");
        if (!keys) add(command, item, "a command has no KEYS: it moves nothing");
        each(keys, [&](const LegacyNode& key) { look_at_key(key, item, kind->is_primary); });
    }

    void look_at_key(const LegacyNode& key, const std::wstring& item, bool is_primary) {
        check_keys(key, item, is_primary ? legacy_panel_key_keys() : legacy_plain_key_keys());
        if (!is_primary) {
            look_at_alignment(key, item, "iAlignType");
            return;
        }
        const LegacyNode* pos = key.child("POS");
        if (pos) check_keys(*pos, item, legacy_key_pos_keys());
        const LegacyNode* place = pos ? pos->child("panel_pos") : nullptr;
        if (place) {
            look_at_place(*place, item);
        } else {
            add(key, item, "a key has no panel_pos: it hides the panel");
        }
    }

    const host::LegacyProject& m_project;
    std::wstring m_folder;
    std::vector<Finding> m_findings;
    std::set<CGuid> m_ids;
};

}  // namespace

std::vector<Finding> find_legacy_losses(const host::LegacyProject& project) { return Search(project).all(); }

}  // namespace player
