// The walk through a legacy project: which parts are read, and in which order.

#include "legacy/names.h"
#include "legacy/root_dialog.h"
#include "legacy/timebar.h"
#include "legacy/values.h"
#include "module/boundary.h"
#include "module/manager.h"

namespace {

tstringW texture_folder(const CPakNode& node) {
    const CPakFile* file = node.get_pak_file();
    const tstringW path = file ? file->get_full_filename() : tstringW();
    return filefun::get_file_path(path.c_str()) + filefun::get_pure_filename(path.c_str(), false) + L"_textures/";
}

// What "ROOT" says of the root dialog itself. Its rectangle stays the whole view, whatever the stored one was.
void read_root_dialog(CPakNode& root, CSimpleGUIManager& manager) {
    CSimpleGUIDialog& dialog = *manager.m_root_dialog;
    manager.m_scene_rect = {0, 0, read_legacy_int(root, "WIDTH"), read_legacy_int(root, "HEIGHT")};
    dialog.m_last_rect = manager.m_scene_rect;
    dialog.set_align_type(read_legacy_int(root, "m_iAlignType"));
    dialog.m_offsetx = read_legacy_int(root, "m_offsetx");
    dialog.m_offsety = read_legacy_int(root, "m_offsety");
    // Other dialogs take it for their actor too; nothing ever asked for the root dialog by it.
    dialog.m_item_id = read_legacy_guid(root, "GUID");
    dialog.m_actor->set_name(LEGACY_ROOT_DIALOG, true);
    dialog.m_actor->set_visible((read_legacy_int(root, "Flag") & 1) != 0);
}

// A root dialog that holds nothing goes; one that does lies behind all other dialogs.
void settle_made_root_dialog(CSimpleGUIManager& manager) {
    CSimpleGUIDialog* root = manager.m_root_dialog;
    if (root->m_shapes.empty()) {
        delete_legacy_dialog(manager, *root);
    } else if (manager.m_dialogs.front() == root) {
        manager.m_dialogs.remove(root);
        manager.m_dialogs.push_back(root);
    }
}

}  // namespace

void CSimpleGUIManager::on_open_old_zov_project(CPakNode* node) try {
    if (!node) return;
    m_legacy_texture_folder = texture_folder(*node);
    if (CPakNode* gui = node->find("GUI")) {
        create_root_dialog();
        if (!m_root_dialog) return;
        if (CPakNode* root = find_legacy_child(gui->find("Root Dialog"), "ROOT")) {
            read_root_dialog(*root, *this);
            each_legacy_child_backwards(root->find("Controls"), [this](CPakNode& control) {
                create_shape_from_old_zov(&control, m_root_dialog);
            });
            m_root_dialog->update_rect();
        }
        each_legacy_child(gui->find("Dialogs"), [this](CPakNode& dialog) { create_dialog_from_old_zov(&dialog); });
        settle_made_root_dialog(*this);
    }
    each_legacy_child(node->find("UIStages"), [this](CPakNode& stage) {
        if (stage.get_name() != LEGACY_LOADING_STAGE) create_primary_dialog_from_old_zov(&stage);
    });
    if (CPakNode* timebar = node->find("Timebar")) import_legacy_timebar(*this, *timebar);
    m_scene_rect = m_view_rect;
    for (CSimpleGUIDialog* dialog : m_dialogs) {
        if (dialog) dialog->m_last_rect = dialog->m_rect;
    }
} catch (...) {
    keep_inside(L"on_open_old_zov_project");
}
