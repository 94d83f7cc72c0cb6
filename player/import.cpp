#include <filesystem>
#include <iostream>
#include <optional>

#include "engine/numbers.h"
#include "host/core/legacy_file.h"
#include "host/core/project_save.h"
#include "host/core/text_conversion.h"
#include "player/carry_pictures.h"
#include "player/commands.h"
#include "player/legacy_report.h"
#include "player/progress.h"

namespace player {

namespace {

std::string counted(std::size_t count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string what_was_made(host::Engine& engine) {
    std::size_t dialogs = 0;
    std::size_t controls = 0;
    for (const host::Actor* actor : engine.scene().actors()) {
        const IBaseItem* item = actor->get_item();
        if (item && item->get_type() == ITEM_TYPE_DIALOG) ++dialogs;
        if (item && item->get_type() == ITEM_TYPE_SHAPE) ++controls;
    }
    std::size_t nodes = 0;
    for (const auto& animation : engine.animations().all()) nodes += animation->nodes().size();
    return counted(dialogs, "dialog", "dialogs") + ", " + counted(controls, "control", "controls") + ", " +
           counted(engine.animations().all().size(), "animation", "animations") + " of " +
           counted(nodes, "item", "items");
}

// "one", "two"; all animations, or those alone that start by nothing yet.
std::string listed(host::Engine& engine, bool all) {
    std::string names;
    for (const auto& animation : engine.animations().all()) {
        if (!all && animation->starts_by_itself) continue;
        names += (names.empty() ? "\"" : ", \"") + to_utf8(animation->name()) + "\"";
    }
    return names;
}

// Old files say nothing of what starts an animation, so whoever brings one over may.
bool start_animations(host::Engine& engine, const std::vector<std::string>& names, std::string& error) {
    for (const std::string& name : names) {
        bool is_found = false;
        for (const auto& animation : engine.animations().all()) {
            if (to_utf8(animation->name()) != name) continue;
            animation->starts_by_itself = is_found = true;
        }
        if (is_found) continue;
        const std::string known = listed(engine, true);
        error = "there is no animation \"" + name + "\" to start (there " +
                (known.empty() ? "are none" : "are " + known) + ")";
        return false;
    }
    return true;
}

// Part by part, for a small old file can stand for a large new one. Gives how many pictures came along.
std::optional<std::size_t> save_with_pictures(host::Engine& engine, const std::string& path, std::string& error) try {
    host::ProjectSave save(path, engine.scene().size());
    CarriedPictures pictures(path, save);
    engine.save_parts(path, pictures);
    if (!save.finish(error)) return std::nullopt;
    return pictures.count();
} catch (const std::filesystem::filesystem_error& failure) {
    const std::filesystem::path& at = failure.path2().empty() ? failure.path1() : failure.path2();
    const std::u8string place = at.generic_u8string();
    error =
        std::string(place.begin(), place.end()) + ": the pictures can't be copied there: " + failure.code().message();
    return std::nullopt;
}

void print(const std::string& file, const Finding& finding) {
    std::cout << file << ':' << finding.line << ": ";
    if (!finding.item.empty()) std::cout << '"' << to_utf8(finding.item) << "\": ";
    std::cout << finding.text << '\n';
}

}  // namespace

int import(const ImportOptions& options) {
    std::error_code ignored;
    if (std::filesystem::equivalent(options.legacy, options.out, ignored))
        return fail(options.out + ": this is the legacy file itself, which stays as it is");
    const Progress progress("Importing " + options.legacy);
    std::string error;
    const auto legacy = host::read_legacy(options.legacy, error);
    if (!legacy) return fail(error);
    const auto session = Session::start(host::SdlDevice::in_memory(), options.module, error);
    if (!session) return fail(error);
    host::Engine& engine = session->engine();
    if (!engine.new_project(options.size.width, options.size.height)) return fail("out of memory");
    if (!engine.import_tree(*legacy, error)) return fail(error);
    if (!start_animations(engine, options.start, error)) return fail(options.legacy + ": " + error);
    const std::optional<std::size_t> carried = save_with_pictures(engine, options.out, error);
    if (!carried) return fail(error);

    std::cout << options.out << ": " << what_was_made(engine) << '\n';
    if (*carried > 0) std::cout << counted(*carried, "picture", "pictures") << " copied beside it\n";
    const std::string waiting = listed(engine, false);
    if (!waiting.empty()) std::cout << "no start of its own (a script or --start gives it one): " << waiting << '\n';
    const std::vector<Finding> losses = find_legacy_losses(*legacy);
    if (options.report) {
        for (const Finding& loss : losses) print(options.legacy, loss);
    }
    if (losses.empty()) {
        std::cout << "everything came over\n";
    } else if (!options.report) {
        std::cout << counted(losses.size(), "thing", "things") << " did not come over as it was; --report lists them\n";
    }
    return EXIT_DONE;
}

}  // namespace player
