#include <new>

#include "module/manager.h"

void g_create_module(IBaseModule** out, XSystem* system) {
    try {
        *out = new CSimpleGUIManager(system);
    } catch (const std::bad_alloc&) {
        *out = nullptr;
    }
}
