// Legacy projects are not read: each operation of the import leaves the project as it is.

#include "module/manager.h"

void CSimpleGUIManager::on_open_old_zov_project(CPakNode*) {}

void CSimpleGUIManager::create_dialog_from_old_zov(CPakNode*) {}

void CSimpleGUIManager::create_shape_from_old_zov(CPakNode*, CSimpleGUIDialog*) {}

CMyComPtr<ITexture> CSimpleGUIManager::get_texture_from_old_zov(CPakNode*) { return {}; }

void CSimpleGUIManager::create_primary_dialog_from_old_zov(CPakNode*) {}

void CSimpleGUIManager::create_primary_shape_from_old_zov(CPakNode*, CSimpleGUIDialog*) {}
