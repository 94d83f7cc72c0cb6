#include <filesystem>
#include <iostream>

#include "engine/numbers.h"
#include "host/core/legacy_file.h"
#include "host/core/text_conversion.h"
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
    engine.new_project(options.size.width, options.size.height);
    if (!engine.import_tree(*legacy, error)) return fail(error);
    const std::string made = what_was_made(engine);
    if (!engine.save_project(options.out, error)) return fail(error);

    std::cout << options.out << ": " << made << '\n';
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
