// Publishing: the module copies the fonts of its slots beside the project, and the project learns the names of those
// files, for that is how it finds them on a machine without the fonts.

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>

#include "engine/services.h"
#include "fonts/file_names.h"
#include "fonts/font_candidates.h"
#include "fonts/font_info.h"
#include "host/core/font_face.h"
#include "host/core/log.h"
#include "host/core/memory_watch.h"
#include "host/core/native_path.h"
#include "host/core/project_file.h"
#include "host/core/recording_device.h"
#include "host/core/text_conversion.h"
#include "host/system/engine.h"
#include "host/system/platform.h"
#include "module/manager.h"
#include "module/setting.h"
#include "player/fonts/font_library.h"

namespace {

namespace fs = std::filesystem;
using fonts::PublishedSlot;

std::string utf8(const fs::path& path) {
    const std::u8string bytes = path.u8string();
    return {bytes.begin(), bytes.end()};
}

// The module's table of functions holds plain ones, so what was copied is noted here: to, from.
std::map<std::wstring, std::wstring> copies;

bool copy_and_note(const std::wstring& from, const std::wstring& to) {
    if (!host::default_platform_functions().copy_file(from, to)) return false;
    copies[to] = from;
    return true;
}

/// While it lives the module's words go nowhere: the caller says what became of each slot.
class Quiet {
public:
    Quiet() {
        copies.clear();
        platform_functions functions = host::default_platform_functions();
        functions.show_message = [](const std::wstring&) {};
        functions.copy_file = &copy_and_note;
        host::set_platform_functions(functions);
        host::set_log_sink([](int, std::wstring_view) {});
    }
    ~Quiet() {
        host::set_platform_functions(host::default_platform_functions());
        host::set_log_sink({});
    }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;
};

bool is_font_file(const fs::path& file) {
    std::string ending = utf8(file.extension());
    for (char& c : ending) c = static_cast<char>(c | 0x20);
    return ending == ".ttf" || ending == ".otf" || ending == ".ttc" || ending == ".otc";
}

// The same files in the same order on every machine.
std::vector<fs::path> font_files_in(const fs::path& folder) {
    std::vector<fs::path> files;
    std::error_code ended;
    for (fs::directory_iterator at(folder, ended), end; !ended && at != end; at.increment(ended)) {
        if (is_font_file(at->path())) files.push_back(at->path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

bool declares(const fs::path& file, const std::wstring& name) {
    const tstringW path = from_utf8(utf8(file));
    for (const FontFileKind kind : {FontFileKind::SINGLE, FontFileKind::COLLECTION}) {
        const auto names = names_of_file(path, kind);
        if (std::find(names.begin(), names.end(), name) != names.end()) return true;
    }
    return false;
}

/// A project that is open in an engine without a screen.
class OpenProject {
public:
    bool open(const std::string& module, const std::string& project, std::string& error) {
        if (!m_engine.load_module(module, error)) return false;
        if (!dynamic_cast<CSimpleGUIManager*>(m_engine.module())) {
            error = module + ": not the module to publish with";
            return false;
        }
        return m_engine.new_project(1280, 720) ? m_engine.open_project(project, error)
                                               : host::out_of_memory(project, error);
    }

    CGlobalFontInfo& table() { return *static_cast<CSimpleGUIManager*>(m_engine.module())->m_setting->m_font_info; }

    // Loading stops at the first slot whose font is missing; whoever publishes wants the others all the same.
    void fill(std::size_t slot) {
        const LOGFONTW& record = table().m_gui_logfonts_for_loading[slot];
        const int number = static_cast<int>(slot) + 1;
        if (!is_empty(slot) || table().change_font(record, number, true)) return;
        const std::wstring file = file_beside_project(record);
        if (file.empty()) return;
        table().m_font_file_names[slot] = file;
        table().change_font(record, number, true);
    }

    bool is_empty(std::size_t slot) { return font_of(slot) == m_engine.default_font; }
    IBaseFont* font_of(std::size_t slot) { return table().m_gui_fonts[slot]; }
    std::wstring file_of(std::size_t slot) { return host::face_of(font_of(slot))->path; }

private:
    // A copy whose name the project has lost declares what it is.
    std::wstring file_beside_project(const LOGFONTW& record) {
        const std::wstring& project = m_engine.project_file_path;
        const std::wstring folder = filefun::get_file_path(project.c_str());
        const std::wstring published = folder + filefun::get_pure_filename(project.c_str(), false) + L"_textures";
        for (const std::wstring& name : font_candidates(record)) {
            for (const std::wstring& place : {folder.empty() ? L"." : folder, published}) {
                for (const fs::path& file : font_files_in(host::native_path(place)))
                    if (declares(file, name)) return from_utf8(utf8(file.filename()));
            }
        }
        return {};
    }

    host::RecordingDevice m_device;
    // The default font is in no slot's way and is never drawn with here, so any size will do.
    host::Engine m_engine{m_device, L"no file"};
};

PublishedSlot outcome(OpenProject& project, std::size_t slot, const player::StoredSlot& stored) {
    PublishedSlot result;
    result.stored = stored;
    if (stored.is_default() || project.is_empty(slot)) return result;
    result.source = utf8(host::native_path(project.file_of(slot)));
    const tstringW listed = project.table().get_fontpath_by_font(project.font_of(slot));
    if (listed != project.file_of(slot)) {
        result.copy = result.source;
        return result;
    }
    const std::wstring file = filefun::get_pure_filename(listed.c_str(), true);
    for (const auto& [to, from] : copies) {
        if (filefun::get_pure_filename(to.c_str(), true) != file) continue;
        if (from == listed)
            result.copy = utf8(host::native_path(to));
        else
            result.replaced_by = utf8(host::native_path(from));
    }
    return result;
}

std::wstring file_name(const std::string& path) {
    return from_utf8(utf8(host::native_path(from_utf8(path)).filename()));
}

}  // namespace

bool sgui_publish(const std::string& module, const std::string& project, std::vector<PublishedSlot>& slots,
                  std::string& error) {
    host::ProjectDocument document;
    if (!host::read_project(project, document, error)) return false;
    const std::vector<player::StoredSlot> stored = player::stored_slots(document);
    const Quiet quiet;
    OpenProject open;
    if (!open.open(module, project, error)) return false;
    for (std::size_t slot = 0; slot < stored.size(); ++slot) {
        if (!stored[slot].is_default()) open.fill(slot);
    }
    open.table().copy_all_fontfile_to_texture_folder();
    bool changed = false;
    for (std::size_t slot = 0; slot < stored.size(); ++slot) {
        PublishedSlot& published = slots.emplace_back(outcome(open, slot, stored[slot]));
        const std::wstring file = file_name(published.copy);
        published.named_anew = !file.empty() && file != stored[slot].file;
        if (published.named_anew) player::store_file(document, slot, file);
        changed |= published.named_anew;
    }
    return !changed || host::write_project(project, document, error);
}
