// Links the exported classes from outside. An engine is not needed to ask for what concerns values alone.
#include <layout/dialog.h>
#include <module/manager.h>

#include <cstdio>

int main() {
    using Creator = void (*)(IBaseModule**, XSystem*);
    const Creator create = &g_create_module;
    IBaseModule* module = nullptr;
    create(&module, nullptr);
    const bool named = module && module->get_name() == tstringW(L"CSimpleGUIManager");
    const VEC2 moved = CSimpleGUIManager::m_instance->get_offset_of_dif_align(0, 8, {0, 0, 801, 601}, {10, 20});
    std::printf("%s %.1f %.1f\n", named ? "named" : "nameless", static_cast<double>(moved.x),
                static_cast<double>(moved.y));
    delete module;
    return named && moved.x == 410.5f && moved.y == 320.5f ? 0 : 1;
}
