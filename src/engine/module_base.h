#pragma once

#include <cstdint>

#include "engine/guid.h"
#include "engine/project_tree.h"
#include "engine/text.h"

class CPakNode;
class IActor;
class IBaseDevice;
class XSystem;
struct render_context;

/// A parameter of a message: an unsigned int on 32-bit systems, and wide enough for an address everywhere, since some
/// messages carry one.
using message_param = std::uintptr_t;

class ENGINE_API IMessageListener {
public:
    virtual void process_message(unsigned long id, message_param p1, message_param p2, message_param p3,
                                 message_param p4, message_param p5, message_param p6) = 0;

protected:
    ~IMessageListener() = default;
};

/// A plug-in of the engine. The engine delivers its messages to every module unasked, calls each operation on its one
/// thread, and destroys the module through the virtual destructor.
class ENGINE_API IBaseModule : public IMessageListener {
public:
    explicit IBaseModule(XSystem* system);
    IBaseModule(const IBaseModule&);
    IBaseModule& operator=(const IBaseModule&);

    void process_message(unsigned long id, message_param p1, message_param p2, message_param p3, message_param p4,
                         message_param p5, message_param p6) override;
    virtual ~IBaseModule();
    virtual tstringW get_name() const = 0;
    virtual CGuid get_id() const = 0;
    /// Once, when the 3D device and the scene manager can be used.
    virtual void init_3d_environment();
    virtual void on_destroy();
    /// When the project starts to run, and when it stops.
    virtual void prepare_run();
    virtual void after_run();
    virtual void frame_move();
    /// At the start of the opening of a project, ahead of its items; the node is the one that on_save_project got.
    virtual void on_open_project(pack_node* node, const load_operation& operation);
    /// When all items of the project are created and ready.
    virtual void on_project_opened();
    virtual void on_open_old_zov_project(CPakNode* node);
    /// Before the items are saved.
    virtual void on_save_project(pack_node* node, const save_operation& operation);
    virtual void on_import_old_zov_project(CPakNode* node, IActor* parent);
    virtual void on_import_objfile_to_project(tstringW path, IActor* parent);
    /// When the project is closed or a new one begins.
    virtual void on_clean_project();
    virtual void before_render_in_view(const render_context& context);
    virtual void render_in_view_3d(const render_context& context);
    /// In every frame, after the 3D content.
    virtual void render_in_view_2d(const render_context& context);
    virtual void after_render_in_view(const render_context& context);
    /// When the 3D view has changed its size.
    virtual void on_size_changed(int width, int height);
    /// Once, when script functions are to be registered.
    virtual void on_register_xfunc();
    virtual void on_idle();

    XSystem* get_system() const { return m_system; }

    /// Neither is owned. The device is null until the engine has one.
    XSystem* m_system;
    IBaseDevice* m_device;
};
