// The engine asks once for the module's script functions. It registers none.

#include "module/manager.h"

void CSimpleGUIManager::on_register_xfunc() {}
