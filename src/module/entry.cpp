#include "module/boundary.h"
#include "module/manager.h"

void g_create_module(IBaseModule** out, XSystem* system) {
    try {
        *out = new CSimpleGUIManager(system);
    } catch (...) {
        *out = nullptr;
        keep_inside(L"g_create_module");
    }
}
