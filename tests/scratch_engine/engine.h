#pragma once

// The least engine that can drive the module: everything in memory, nothing on a screen, the clock in the test's hand.

#include <memory>
#include <vector>

#include "engine/engine_system.h"
#include "layout/shape.h"
#include "module/manager.h"
#include "scratch_engine/input.h"
#include "scratch_engine/recorder.h"
#include "scratch_engine/registry.h"
#include "scratch_engine/scene.h"
#include "scratch_engine/script.h"
#include "scratch_engine/tree.h"

struct render_context {};

/// A picture whose device side is there or missing.
class ScratchPicture final : public ITexture {
public:
    explicit ScratchPicture(bool has_device) {
        if (has_device) m_device = CMyComPtr<IDeviceTexture>(new IDeviceTexture);
    }
    void create_device_texture(IBaseDevice*) override {}
    IDeviceTexture* get_device_texture() override { return m_device.get(); }

private:
    CMyComPtr<IDeviceTexture> m_device;
};

class ScratchEngine final : public XSystem,
                            private CResourceManager,
                            private CMessageManager,
                            private CSelectionManager,
                            private CScriptManager {
public:
    /// Loads the module and opens a clean project in a view of 800 x 600.
    ScratchEngine();
    /// Ends in the engine's order: items, module, property items.
    ~ScratchEngine();

    const CRect& get_client_rect() const override { return client; }
    void request_view_update() override { ++updates_asked; }

    CSimpleGUIManager& gui() { return static_cast<CSimpleGUIManager&>(*m_module); }
    void resize(int width, int height);
    /// The calls of one frame.
    std::vector<DrawCall> frame();
    void set_seconds(double seconds);
    void tell(unsigned long id, std::list<IActor*> actors);
    void destroy(IBaseItem* item) { scene.delete_actor(item->m_actor); }
    /// An item as the engine makes it when it reads a project; not yet ready.
    template <class Item>
    Item* make(unsigned long type, IBaseItem* parent = nullptr) {
        for (const Registry::Item& row : registry().items) {
            if (row.type != type) continue;
            auto* item = static_cast<Item*>(row.creator(this));
            scene.create_actor(item, parent ? parent->m_actor : nullptr, 1);
            return item;
        }
        return nullptr;
    }

    CRect client{0, 0, 800, 600};
    ScratchScene scene;
    ScratchInput input;
    Recorder device;
    std::list<IActor*> selection;
    int updates_asked = 0;
    std::vector<tstringW> functions;

private:
    CMyComPtr<ITexture> load_texture_from_file(const wchar_t* path) override;
    void send_msg(unsigned long, message_param, message_param, message_param, message_param, message_param,
                  message_param) override {}
    std::list<IActor*>* get_selection() override { return &selection; }
    void remove_item(IActor* actor, int) override { selection.remove(actor); }
    void register_xfun(xfunc_desc function, tstringW) override { functions.push_back(function.func_name); }

    CMyComPtr<IBaseFont> m_font;
    IBaseModule* m_module = nullptr;
};
