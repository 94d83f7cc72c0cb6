// Fonts by name: which ones the system has, which ones the slots hold, and how one came to the other.

#include "fonts/file_names.h"
#include "fonts/font_candidates.h"
#include "host/core/default_font.h"
#include "host/core/font_face.h"
#include "module/setting.h"
#include "player/scenario/calls.h"
#include "player/scenario/font_records.h"

namespace scenario {

namespace {

constexpr int usual_font_height = 18;

CGlobalFontInfo& table_of(const Scenario& scenario) { return *scenario.manager().m_setting->m_font_info; }

template <class Texts>
Value list_of(const Texts& texts) {
    Value list = Value::array();
    for (const auto& text : texts) list.push_back(value_of(text));
    return list;
}

// False for an entry that stands for one which can't be read.
bool read_pair(const Value& entry, const std::string& what, listed_font& font) {
    if (entry == false) return false;
    if (!entry.is_array() || entry.size() > 2)
        throw Failure(what + " must be {name, file}, " + short_text(entry) + " given");
    if (entry.size() < 2 || !entry[1].is_string()) return false;
    tstringW name, file;
    read_value(entry[0], what + "[1]", name);
    read_value(entry[1], what + "[2]", file);
    font = {name, file};
    return true;
}

std::optional<font_list> registry_of(const Arguments& arguments) {
    // A folder that is left out is none; one that is nil can't be read.
    if (!arguments.has(0) || (arguments.count() > 1 && !arguments.has(1))) return std::nullopt;
    font_list list{{}, arguments.get<tstringW>(1, "folder", {})};
    for (const Value& entry : arguments.list(0, "fonts")) {
        const std::string what = arguments.where(0, "fonts") + "[" + std::to_string(list.fonts.size() + 1) + "]";
        if (!read_pair(entry, what, list.fonts.emplace_back())) return std::nullopt;
    }
    return list;
}

Results font_registry(Scenario& scenario, const Arguments& arguments) {
    scenario.log.fonts = registry_of(arguments);
    return {};
}

Results default_font(Scenario& scenario, const Arguments& arguments) {
    Fields fields = arguments.fields(0, "font");
    int height = usual_font_height;
    bool italic = false;
    fields.read("height", height);
    fields.read("italic", italic);
    fields.finish();
    scenario.engine.set_default_font(host::make_font(&scenario.device, host::default_font_path(), height, italic));
    return {};
}

Results font_map(Scenario& scenario, const Arguments&) {
    Value names = Value::object();
    for (const auto& [name, path] : table_of(scenario).m_fontname_fontpath_map)
        names[value_of(name).get<std::string>()] = value_of(path);
    return names;
}

Value slot_value(const Scenario& scenario, IBaseFont* font) {
    const CGlobalFontInfo& table = table_of(scenario);
    const IBaseFont::Face* face = host::face_of(font);
    Value slot = value_of(table.get_logfont_by_font(font));
    slot["path"] = value_of(table.get_fontpath_by_font(font));
    slot["file"] = value_of(face ? face->path : std::wstring());
    slot["size"] = face ? face->asked_height : 0u;
    slot["default"] = font == scenario.engine.default_font;
    return slot;
}

Results fonts(Scenario& scenario, const Arguments&) {
    const CGlobalFontInfo& table = table_of(scenario);
    Value slots = Value::array(), records = Value::array();
    for (IBaseFont* font : table.m_gui_fonts) slots.push_back(slot_value(scenario, font));
    for (const LOGFONTW& record : table.m_gui_logfonts_for_loading) records.push_back(value_of(record));
    return Value{{"status", value_of(table.m_font_status)},
                 {"showing", table.m_show_font_sample},
                 {"created", table.m_created_fonts.size()},
                 {"slots", slots},
                 {"records", records},
                 {"file_names", list_of(table.m_font_file_names)}};
}

Results change_font(Scenario& scenario, const Arguments& arguments) {
    const LOGFONTW record = font_record(arguments.at(1), arguments.where(1, "record"));
    const bool loading = arguments.get<bool>(2, "loading", false);
    return Value(table_of(scenario).change_font(record, arguments.get<int>(0, "number"), loading));
}

Results publish_fonts(Scenario& scenario, const Arguments&) {
    table_of(scenario).copy_all_fontfile_to_texture_folder();
    return {};
}

Results font_candidates(Scenario&, const Arguments& arguments) {
    return list_of(::font_candidates(font_record(arguments.at(0), arguments.where(0, "record"))));
}

Results font_names(Scenario&, const Arguments& arguments) {
    const auto path = arguments.get<tstringW>(0, "path");
    return Value{{"single", list_of(names_of_file(path, FontFileKind::SINGLE))},
                 {"collection", list_of(names_of_file(path, FontFileKind::COLLECTION))}};
}

constexpr HostFunction functions[] = {
    {"font_registry", &font_registry}, {"default_font", &default_font},
    {"font_map", &font_map},           {"fonts", &fonts},
    {"change_font", &change_font},     {"publish_fonts", &publish_fonts},
    {"font_names", &font_names},       {"font_candidates", &font_candidates},
};

}  // namespace

std::span<const HostFunction> font_calls() { return functions; }

}  // namespace scenario
