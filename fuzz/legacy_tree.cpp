// Any tree and any text as a legacy project: read, brought over, drawn, run, moved, saved, opened again, thrown away.
// The trees have the names of the format in their places, so that chance gets behind them; everything else is chance.

#include <fuzzer/FuzzedDataProvider.h>

#include "fuzz/stage.h"
#include "host/core/legacy_file.h"
#include "host/core/legacy_value.h"
#include "layout/shape.h"
#include "module/manager.h"
#include "player/legacy_report.h"

namespace {

using fuzz::must;
using host::LegacyNode;

struct Key {
    const char* name;
    int code;
};
constexpr Key root_keys[] = {{"WIDTH", 3},     {"HEIGHT", 3}, {"m_iAlignType", 3},
                             {"m_offsetx", 3}, {"GUID", 11},  {"Flag", 3}};
constexpr Key dialog_keys[] = {{"m_iAlignType", 3}, {"m_offsety", 3}, {"POSX", 3},      {"POSY", 3}, {"WIDTH", 3},
                               {"HEIGHT", 3},       {"GUID", 11},     {"ScaleMode", 3}, {"Flag", 3}};
constexpr Key control_keys[] = {{"Align", 3},   {"ScaleMode", 3}, {"NAME", 6}, {"Caption", 20},
                                {"VISIBLE", 3}, {"POSX", 3},      {"POSY", 3}, {"WIDTH", 3},
                                {"HEIGHT", 3},  {"GUID", 11},     {"Type", 3}, {"BKIMAGE", 3}};
constexpr Key panel_keys[] = {{"id", 11},           {"visible", 3},      {"panel_type", 3}, {"color", 3},
                              {"text_format", 3},   {"TRANS_FACTOR", 3}, {"text_buf", 0},   {"ENABLE_TRANSP", 3},
                              {"text_font_idx", 3}, {"TRANSP_TYPE", 3}};
constexpr Key place_keys[] = {{"locate_mode", 3},  {"align_mode", 3},  {"offset_in_pixel", 8}, {"size_in_pixel", 15},
                              {"percent_left", 9}, {"percent_top", 9}, {"percent_right", 9},   {"percent_bottom", 9}};
constexpr Key plain_key_keys[] = {{"TIME", 3},       {"m_offset_x", 9}, {"m_offset_y", 9},  {"m_sizex", 9},
                                  {"m_bVisible", 3}, {"iAlignType", 3}, {"m_bScaleMode", 3}};
constexpr Key panel_key_keys[] = {{"TIME", 3}, {"COLOR", 3}, {"ALPHA", 3}};
constexpr Key command_keys[] = {{"TYPE", 3}, {"CTRL", 11}, {"DLG", 11}, {"ID", 11}};
constexpr const char* stage_names[] = {"舞台", "主页面", "加载页面", ""};
constexpr const char* panel_names[] = {"面板", "绘图区", "桌面", "stage_name", ""};
constexpr const char* files[] = {"", "nothing.png", "D:\\a\\b.png", "/", "..", "/dev/null"};

class Grower {
public:
    explicit Grower(FuzzedDataProvider& chance) : m_chance(chance) {}

    void grow(LegacyNode& top) {
        if (LegacyNode* gui = maybe(top, "GUI")) {
            if (LegacyNode* above = maybe(*gui, "Root Dialog"))
                if (LegacyNode* root = maybe(*above, "ROOT")) {
                    add_keys(*root, root_keys);
                    add_controls(*root);
                }
            if (LegacyNode* dialogs = maybe(*gui, "Dialogs"))
                each(*dialogs, {"D"}, [this](LegacyNode& dialog) {
                    add_keys(dialog, dialog_keys);
                    add_controls(dialog);
                });
        }
        if (LegacyNode* stages = maybe(top, "UIStages"))
            each(*stages, stage_names, [this](LegacyNode& stage) {
                each(stage, panel_names, [this](LegacyNode& panel) { grow_panel(panel); });
            });
        if (LegacyNode* timebar = maybe(top, "Timebar"))
            if (LegacyNode* bars = maybe(*timebar, "BARS"))
                each(*bars, {"bar"}, [this](LegacyNode& bar) {
                    add_keys(bar, {{"TYPE", 3}});
                    if (LegacyNode* commands = maybe(bar, "CMDS"))
                        each(*commands, {"c"}, [this](LegacyNode& command) { grow_command(command); });
                });
    }

private:
    LegacyNode* maybe(LegacyNode& parent, const char* name) {
        const int what = m_chance.ConsumeIntegralInRange(0, 15);
        if (what == 0) return nullptr;
        if (what == 1) parent.add_nothing();
        return &parent.add(name);
    }

    template <class Visit>
    void each(LegacyNode& parent, std::span<const char* const> names, Visit visit) {
        for (int left = m_chance.ConsumeIntegralInRange(0, 3); left > 0; --left) {
            if (m_chance.ConsumeIntegralInRange(0, 15) == 0) {
                parent.add_nothing();
                continue;
            }
            const std::size_t at = m_chance.ConsumeIntegralInRange<std::size_t>(0, names.size() - 1);
            visit(parent.add(names[at]));
        }
    }
    template <class Visit>
    void each(LegacyNode& parent, std::initializer_list<const char*> names, Visit visit) {
        each(parent, std::span<const char* const>(names.begin(), names.size()), visit);
    }

    void grow_panel(LegacyNode& panel) {
        add_keys(panel, panel_keys);
        if (LegacyNode* place = maybe(panel, "panel_pos")) add_keys(*place, place_keys);
        add_picture(panel, "texture");
    }

    void grow_command(LegacyNode& command) {
        add_keys(command, command_keys);
        if (LegacyNode* keys = maybe(command, "KEYS"))
            each(*keys, {"k"}, [this](LegacyNode& key) {
                if (m_chance.ConsumeBool()) return add_keys(key, plain_key_keys);
                add_keys(key, panel_key_keys);
                LegacyNode* pos = maybe(key, "POS");
                LegacyNode* place = pos ? maybe(*pos, "panel_pos") : nullptr;
                if (place) add_keys(*place, place_keys);
            });
    }

    void add_controls(LegacyNode& parent) {
        if (LegacyNode* controls = maybe(parent, "Controls"))
            each(*controls, {"c"}, [this](LegacyNode& control) {
                add_keys(control, control_keys);
                for (const char* key : {"Texture", "Texture0", "Texture1", "Texture2"}) add_picture(control, key);
            });
    }

    void add_picture(LegacyNode& parent, const char* key) {
        if (!m_chance.ConsumeBool()) return;
        LegacyNode& file = parent.add(key).add("FILENAME");
        file.code = LEGACY_PATH;
        file.data = host::legacy_bytes(tstringW(from_ascii(files[m_chance.ConsumeIntegralInRange<std::size_t>(0, 5)])));
    }

    static std::wstring from_ascii(std::string_view text) { return {text.begin(), text.end()}; }

    void add_keys(LegacyNode& node, std::span<const Key> keys) {
        for (const Key& key : keys) add_key(node, key);
    }
    void add_keys(LegacyNode& node, std::initializer_list<Key> keys) { add_keys(node, {keys.begin(), keys.size()}); }

    void add_key(LegacyNode& node, const Key& key) {
        switch (m_chance.ConsumeIntegralInRange(0, 9)) {
            case 0:
                return;
            case 1:
                fill(node.add(key.name), m_chance.ConsumeIntegralInRange(0, 21),
                     m_chance.ConsumeRandomLengthString(700));
                return;
            case 2:
                fill(node.add(key.name), key.code, m_chance.ConsumeRandomLengthString(700));
                return;
            default:
                fill(node.add(key.name), key.code, sound_value(key.code));
        }
    }

    static void fill(LegacyNode& node, int code, std::string data) {
        node.code = code;
        node.data = std::move(data);
    }

    std::string sound_value(int code) {
        const auto number = [this] { return m_chance.ConsumeIntegralInRange(-2, 12); };
        switch (code) {
            case LEGACY_INT:
                if (m_chance.ConsumeBool()) return host::legacy_bytes(number());
                return host::legacy_bytes(m_chance.ConsumeIntegral<std::int32_t>());
            case LEGACY_FLOAT:
                return host::legacy_bytes(static_cast<float>(number()) / 4.0f);
            case LEGACY_VEC3:
                return host::legacy_bytes(VEC3(static_cast<float>(number()), static_cast<float>(number()), 0.0f));
            case LEGACY_PAIR:
                return host::legacy_bytes(CPoint(number() * 10, number() * 10));
            case LEGACY_GUID: {
                // Few, so that commands find their items and items share them.
                GUID id{};
                id.Data1 = static_cast<std::uint32_t>(m_chance.ConsumeIntegralInRange(0, 5));
                return host::legacy_bytes(CGuid(id));
            }
            default:
                return host::legacy_units(from_ascii(m_chance.ConsumeRandomLengthString(40)));
        }
    }

    FuzzedDataProvider& m_chance;
};

bool is_listed(const CSimpleGUIManager& gui, const CSimpleGUIDialog* dialog) {
    return !dialog || gui.m_dialogs.contains(dialog);
}

void bring_over(host::LegacyProject& legacy) {
    static fuzz::Stage stage;
    host::Engine& engine = stage.engine;
    engine.new_project(320, 200);
    std::string error;
    must(engine.import_tree(legacy, error), "every tree can be brought over");
    player::find_legacy_losses(legacy);
    const CSimpleGUIManager& gui = *CSimpleGUIManager::m_instance;
    must(is_listed(gui, gui.m_root_dialog) && is_listed(gui, gui.get_editing_dialog()),
         "no dialog is named that is gone");
    must(gui.m_scene_rect == gui.m_view_rect, "the view on record is the present one");
    fuzz::live(engine);
    const host::ProjectDocument saved = engine.document();
    must(engine.open_document(saved, "x", error), "what was saved opens");
    fuzz::live(engine);
    engine.new_project(320, 200);
    must(gui.m_dialogs.empty() && gui.m_shapes.empty() && gui.m_anim_nodes.empty(), "nothing is left");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    // A text begins as texts do.
    if (size > 0 && data[0] == '<') {
        std::string error;
        const auto legacy = host::parse_legacy({reinterpret_cast<const char*>(data), size}, "C:/a/b.legacy", error);
        must((legacy != nullptr) == error.empty(), "what can't be read is an error");
        if (legacy) bring_over(*legacy);
        return 0;
    }
    FuzzedDataProvider chance(data, size);
    host::LegacyProject legacy(L"C:/a/b.legacy");
    Grower(chance).grow(legacy.root());
    bring_over(legacy);
    return 0;
}
