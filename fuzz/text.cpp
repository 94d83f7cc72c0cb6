// Any bytes as a text to be drawn: at any anchor and position, in a view that mostly cuts it off, by the device that
// makes the pictures. The shape's own text comes back as it was given.

#include "fuzz/stage.h"
#include "host/core/default_font.h"
#include "host/core/sdl_device.h"
#include "host/core/text_conversion.h"
#include "layout/shape.h"
#include "module/manager.h"

namespace {

struct Screen {
    Screen() : device(host::SdlDevice::in_memory()), engine(*device, host::default_font_path()) {
        engine.draw_scene = nullptr;
        std::string error;
        fuzz::must(engine.load_module(MODULE_PATH, error), error.c_str());
        engine.new_project(64, 48);
        CSimpleGUIManager& gui = *CSimpleGUIManager::m_instance;
        CSimpleGUIDialog* dialog = gui.create_dialog();
        dialog->set_rect({0, 0, 64, 48}, true);
        shape = gui.create_shape(dialog);
    }
    std::unique_ptr<host::SdlDevice> device;
    host::Engine engine;
    CSimpleGUIShape* shape = nullptr;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static Screen screen;
    // The last four bytes are place and form, so that the text can be any file.
    const unsigned char* form = size >= 4 ? data + size - 4 : nullptr;
    const auto number = [form](int at) { return form ? static_cast<int>(form[at]) : 0; };
    CSimpleGUIShape& shape = *screen.shape;
    shape.m_title = from_utf8({reinterpret_cast<const char*>(data), size});
    shape.m_rect = {number(0) - 128, number(1) - 128, number(0), number(1)};
    shape.m_font_org_position = static_cast<font_org_position>(number(2) % 14);
    shape.m_font_shadow = number(3) & 1;
    shape.m_font_type = number(3) % 9;
    const tstringW given = shape.m_title;
    screen.engine.frame(0.0);
    fuzz::must(screen.device->read_pixels().size() == std::size_t{64} * 48, "the frame is whole");
    fuzz::must(shape.m_title == given, "drawing leaves the text alone");
    return 0;
}
