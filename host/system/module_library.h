#pragma once

#include <memory>
#include <string>

#include "engine/module_base.h"

namespace host {

/// A module in its shared library. The module goes ahead of the library.
class ModuleLibrary {
public:
    /// Null with `error` set if the file is no library, has no entry point, or its entry point makes no module.
    static std::unique_ptr<ModuleLibrary> load(const std::string& path, XSystem* system, std::string& error);
    ModuleLibrary(const ModuleLibrary&) = delete;
    ModuleLibrary& operator=(const ModuleLibrary&) = delete;
    ~ModuleLibrary();

    IBaseModule& module() const { return *m_module; }

private:
    explicit ModuleLibrary(void* handle) : m_handle(handle) {}
    void* m_handle;
    std::unique_ptr<IBaseModule> m_module;
};

}  // namespace host
