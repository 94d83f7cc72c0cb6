// `sgui fonts` and `sgui publish`: which names lead to which files, and what a project takes along.

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>

#include "host/core/text_conversion.h"
#include "player/commands.h"
#include "player/libraries.h"
#include "player/progress.h"
#include "player/scenario_library.h"

namespace player {

namespace {

using nlohmann::ordered_json;

// Only letters that every language folds alike.
std::string folded(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return text;
}

std::string padded(std::string text, std::size_t width) {
    // What a terminal shows of Chinese is wider than its count, and its bytes are more; characters come near enough.
    const std::size_t characters = from_utf8(text).size();
    if (characters < width) text.append(width - characters, ' ');
    return text;
}

fonts::NameMap matching(const fonts::NameMap& names, const std::string& pattern) {
    fonts::NameMap found;
    for (const auto& [name, file] : names)
        if (folded(name).find(folded(pattern)) != std::string::npos) found.emplace(name, file);
    return found;
}

// A font file may declare anything, also what a terminal would take for a command.
std::string on_one_line(std::string name) {
    for (char& c : name)
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = '?';
    return name;
}

void print_names(const fonts::NameMap& names, bool json) {
    if (json) {
        ordered_json list = ordered_json::array();
        for (const auto& [name, file] : names) list.push_back({{"name", name}, {"file", file}});
        std::cout << list.dump(2) << '\n';
        return;
    }
    for (const auto& [name, file] : names) std::cout << padded(on_one_line(name), 40) << "  " << file << '\n';
}

int list_names(const ScenarioLibrary& library, const FontsOptions& options) {
    fonts::NameMap names;
    if (!library.font_names(names)) return fail("the fonts of this machine can't be listed");
    const fonts::NameMap found = matching(names, options.pattern);
    print_names(found, options.json);
    if (found.empty())
        return fail(names.empty() ? "this machine has no fonts" : "no font name holds \"" + options.pattern + "\"");
    return EXIT_DONE;
}

struct Search {
    std::vector<fonts::Try> tries;
    /// Index of the first that has a file; the count of tries if none has.
    std::size_t hit = 0;

    bool is_found() const { return hit < tries.size(); }
};

void print_search(const Search& search) {
    for (std::size_t at = 0; at < search.tries.size(); ++at) {
        const char* mark = at == search.hit ? "found  " : at < search.hit ? "-      " : "       ";
        std::cout << mark << (at == search.hit ? padded(search.tries[at].name, 40) : search.tries[at].name);
        if (at == search.hit) std::cout << "  " << search.tries[at].file;
        std::cout << '\n';
    }
}

void print_search_json(const Search& search) {
    ordered_json candidates = ordered_json::array();
    for (std::size_t at = 0; at < search.tries.size(); ++at)
        candidates.push_back(
            {{"name", search.tries[at].name}, {"tried", at <= search.hit}, {"found", at == search.hit}});
    const ordered_json file = search.is_found() ? ordered_json(search.tries[search.hit].file) : ordered_json();
    std::cout << ordered_json{{"candidates", candidates}, {"file", file}}.dump(2) << '\n';
}

int explain(const ScenarioLibrary& library, const FontsOptions& options) {
    FontWish wish{from_utf8(*options.face), options.weight, options.italic};
    Search search;
    library.font_tries(wish, search.tries);
    while (search.is_found() && search.tries[search.hit].file.empty()) ++search.hit;
    options.json ? print_search_json(search) : print_search(search);
    if (search.is_found()) return EXIT_DONE;
    if (search.tries.empty())
        return fail("\"" + *options.face + "\" is the engine's own font, which is not looked for");
    return fail("no name that \"" + *options.face + "\" is looked for under is known here (see \"sgui fonts\")");
}

std::string fate_of(const fonts::PublishedSlot& slot) {
    if (slot.stored.is_default()) return "the engine's own font";
    if (slot.source.empty()) return "NOT FOUND here: it is neither installed nor beside the project";
    if (!slot.replaced_by.empty())
        return "NOT KEPT: " + slot.replaced_by + " has the same file name as " + slot.source + " and took its place";
    if (slot.copy.empty()) return "NOT COPIED: " + slot.source + " can't be read, or the folder can't be written to";
    const std::string copy =
        slot.copy == slot.source ? slot.source + " is beside the project" : slot.source + " -> " + slot.copy;
    return copy + (slot.named_anew ? "; the project now names it" : "");
}

bool is_missing(const fonts::PublishedSlot& slot) { return !slot.stored.is_default() && slot.copy.empty(); }

}  // namespace

int list_fonts(const FontsOptions& options) {
    ScenarioLibrary library;
    std::string error;
    if (!library.load(error)) return fail(error);
    return options.face ? explain(library, options) : list_names(library, options);
}

int publish(const PublishOptions& options) {
    ScenarioLibrary library;
    std::string error;
    if (!library.load(error)) return fail(error);
    const std::string module = options.module.empty() ? library_beside_program("libsimple_gui.so") : options.module;
    std::vector<fonts::PublishedSlot> slots;
    {
        const Progress progress("Publishing " + options.project);
        if (!library.publish(module, options.project, slots, error)) return fail(error);
    }
    for (std::size_t at = 0; at < slots.size(); ++at)
        std::cout << "slot " << at << "  " << padded(to_utf8(slots[at].stored.wish.face), 24) << "  "
                  << fate_of(slots[at]) << '\n';
    const auto missing = std::count_if(slots.begin(), slots.end(), &is_missing);
    if (missing == 0) return EXIT_DONE;
    return fail(options.project + ": " + std::to_string(missing) + " of its fonts can't be taken along");
}

}  // namespace player
