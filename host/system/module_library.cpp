#include "host/system/module_library.h"

#include <dlfcn.h>

#include "host/core/item_store.h"
#include "host/system/animation.h"

namespace host {
namespace {

using CreateModule = void (*)(IBaseModule**, XSystem*);

std::string loader_error(const char* fallback) {
    const char* reason = dlerror();
    return reason ? reason : fallback;
}

}  // namespace

std::unique_ptr<ModuleLibrary> ModuleLibrary::load(const std::string& path, XSystem* system, std::string& error) {
    // A plain file name would send the loader through its search folders instead of to the file.
    const std::string place = path.find('/') == std::string::npos ? "./" + path : path;
    void* handle = dlopen(place.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) {
        error = loader_error("cannot load the module");
        return nullptr;
    }
    std::unique_ptr<ModuleLibrary> library(new ModuleLibrary(handle));
    const auto create = reinterpret_cast<CreateModule>(dlsym(handle, "g_create_module"));
    if (!create) {
        error = path + ": no module: it has no g_create_module";
        return nullptr;
    }
    IBaseModule* module = nullptr;
    set_registering_owner(library.get());
    create(&module, system);
    set_registering_owner(nullptr);
    library->m_module.reset(module);
    if (module) return library;
    error = path + ": its g_create_module made no module";
    return nullptr;
}

ModuleLibrary::~ModuleLibrary() {
    m_module.reset();
    forget_item_kinds(this);
    forget_anim_kinds(this);
    dlclose(m_handle);
}

}  // namespace host
