// Any text as a project: read, opened, drawn, run, resized, saved and opened again. What can be read comes back from
// its own text bit for bit; what was opened and saved stays the same from the second save on.

#include "host/core/project_file.h"
#include "fuzz/stage.h"
#include "host/core/project_plain.h"

namespace {

using fuzz::must;

std::string text_of(const host::ProjectDocument& document) {
    std::string error;
    const std::string text = host::format_project(document, error);
    must(!text.empty() && error.empty(), "what was read can be written");
    return text;
}

std::string opened_and_saved(host::Engine& engine, const host::ProjectDocument& document) {
    engine.new_project(320, 200);
    std::string error;
    must(engine.open_document(document, "p", error), "what was saved opens");
    return text_of(engine.document("p"));
}

host::ProjectDocument read(const std::string& text) {
    host::ProjectDocument document;
    std::string error;
    must(host::parse_project(text, "p", document, error), "what was written can be read");
    return document;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static fuzz::Stage stage;
    host::Engine& engine = stage.engine;
    engine.scripts().on_error = [](const std::string&) {};
    engine.scripts().on_print = [](const std::string&) {};
    host::ProjectDocument document;
    std::string error;
    const bool good = host::parse_project({reinterpret_cast<const char*>(data), size}, "p", document, error);
    must(good == error.empty(), "what can't be read is an error");
    if (!good) return 0;
    const std::string text = text_of(document);
    must(text_of(read(text)) == text, "what was read comes back");
    must(host::parse_plain_project(text).has_value(), "what was written is plain");
    must(text_of(read(text.substr(text.find('\n') + 1))) == text, "both readers find the same");
    engine.new_project(320, 200);
    if (!engine.open_document(document, "p", error)) {
        must(!error.empty(), "what can't be opened is an error");
        return 0;
    }
    const std::string once = text_of(engine.document("p"));
    const std::string twice = opened_and_saved(engine, read(once));
    must(opened_and_saved(engine, read(twice)) == twice, "what was saved stays the same");
    fuzz::live(engine);
    engine.new_project(320, 200);
    return 0;
}
