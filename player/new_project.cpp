#include <filesystem>
#include <iostream>

#include "host/core/item_store.h"
#include "host/core/project_document.h"
#include "player/commands.h"

namespace player {

namespace {

// A dialog in the middle of the view with a title and a button whose script answers: the least from which an author
// sees how the pieces hang together. What stands nowhere here has the module's own defaults.
constexpr const wchar_t* dialog_id = L"6E6A1C1E-55A0-4E0B-9B42-2D4C1E7E0001";

host::ProjectItem item(unsigned long type, const wchar_t* id, const wchar_t* name) {
    host::ProjectItem made;
    made.type = type;
    made.id = CGuid(id);
    made.name = name;
    return made;
}

host::ProjectItem dialog() {
    host::ProjectItem made = item(ITEM_TYPE_DIALOG, dialog_id, L"Welcome");
    made.data.set("m_iAlignType", 8);
    made.data.set("m_offsetx", -200);
    made.data.set("m_offsety", -100);
    made.data.set("m_rect", CRect(440, 260, 840, 460));
    made.data.set("m_order_num", 0);
    return made;
}

host::ProjectItem shape(const wchar_t* id, const wchar_t* name, const CRect& place, const VEC4& color,
                        const wchar_t* title, int order) {
    host::ProjectItem made = item(ITEM_TYPE_SHAPE, id, name);
    made.parent = CGuid(dialog_id);
    made.data.set("m_rect", place);
    made.data.set("m_color", color);
    made.data.set("m_title", tstringW(title));
    made.data.set("m_offsetx", static_cast<int>(place.left));
    made.data.set("m_offsety", static_cast<int>(place.top));
    made.data.set("m_order_num", order);
    return made;
}

void add_first_items(host::ProjectDocument& document) {
    document.items.push_back(dialog());
    document.items.push_back(shape(L"6E6A1C1E-55A0-4E0B-9B42-2D4C1E7E0002", L"Panel", {0, 0, 400, 200},
                                   {0.10f, 0.13f, 0.18f, 0.85f}, L"", 2));
    document.items.push_back(shape(L"6E6A1C1E-55A0-4E0B-9B42-2D4C1E7E0003", L"Title", {0, 20, 400, 80},
                                   {1.0f, 1.0f, 1.0f, 0.0f}, L"欢迎 · Welcome", 1));
    host::ProjectItem button = shape(L"6E6A1C1E-55A0-4E0B-9B42-2D4C1E7E0004", L"Button", {120, 110, 280, 160},
                                     {0.20f, 0.50f, 0.85f, 1.0f}, L"Press me", 0);
    host::ProjectNode& script = button.data.add("m_func_left_down");
    script.set("type", static_cast<int>(host::ITEM_TYPE_SCRIPT));
    script.set("script", tstringW(L"message(\"The button was pressed.\")"));
    document.items.push_back(std::move(button));
}

}  // namespace

int create_project(const NewOptions& options) {
    std::error_code ignored;
    if (std::filesystem::exists(options.file, ignored)) {
        return fail(options.file + ": there is such a file already; nothing was changed");
    }
    std::string error;
    const auto session = Session::start(host::SdlDevice::in_memory(), options.module, error);
    if (!session) return fail(error);
    // Through the module and back, so that the file holds every field that a saved project has.
    if (!session->engine().new_project(ViewSize().width, ViewSize().height)) return fail("out of memory");
    host::ProjectDocument document = session->engine().document(options.file);
    add_first_items(document);
    if (!session->engine().open_document(document, options.file, error)) return fail(error);
    if (!session->engine().save_project(options.file, error)) return fail(error);
    std::cout << options.file << ": play it with \"sgui play " << options.file << "\"\n";
    return EXIT_DONE;
}

}  // namespace player
