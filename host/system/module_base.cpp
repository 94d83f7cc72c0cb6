#include "engine/module_base.h"

#include "engine/system.h"

IBaseModule::IBaseModule(XSystem* system) : m_system(system), m_device(system ? system->render_device : nullptr) {}
IBaseModule::IBaseModule(const IBaseModule&) = default;
IBaseModule& IBaseModule::operator=(const IBaseModule&) = default;
IBaseModule::~IBaseModule() = default;

void IBaseModule::process_message(unsigned long, message_param, message_param, message_param, message_param,
                                  message_param, message_param) {}
void IBaseModule::init_3d_environment() {}
void IBaseModule::on_destroy() {}
void IBaseModule::prepare_run() {}
void IBaseModule::after_run() {}
void IBaseModule::frame_move() {}
void IBaseModule::on_open_project(pack_node*, const load_operation&) {}
void IBaseModule::on_project_opened() {}
void IBaseModule::on_open_old_zov_project(CPakNode*) {}
void IBaseModule::on_save_project(pack_node*, const save_operation&) {}
void IBaseModule::on_import_old_zov_project(CPakNode*, IActor*) {}
void IBaseModule::on_import_objfile_to_project(tstringW, IActor*) {}
void IBaseModule::on_clean_project() {}
void IBaseModule::before_render_in_view(const render_context&) {}
void IBaseModule::render_in_view_3d(const render_context&) {}
void IBaseModule::render_in_view_2d(const render_context&) {}
void IBaseModule::after_render_in_view(const render_context&) {}
void IBaseModule::on_size_changed(int, int) {}
void IBaseModule::on_register_xfunc() {}
void IBaseModule::on_idle() {}
