#pragma once

// The engine's own records of a load and of a save. Modules and items hand them on and read nothing of them.

#include <string>
#include <unordered_map>
#include <vector>

#include "engine/guid.h"
#include "engine/text.h"
#include "engine/texture.h"

class XSystem;

/// A load in work. Lives for one project or one item.
struct load_operation {
    XSystem* system = nullptr;
    /// Folder of the project file, UTF-8; empty for the working directory. Relative picture paths count from it.
    std::string project_folder;
    /// Where missing pictures and the like are told, one line each; null where no one listens.
    std::vector<std::string>* warnings = nullptr;
    /// The actor whose item is being read, for the warnings and for scripts that name their owner in errors.
    CGuid owner_id;
    tstringW owner_name;
    /// The pictures so far, by their stored paths: many items show few of them, and those that show one share it.
    mutable std::unordered_map<std::wstring, CMyComPtr<ITexture>> pictures;
};

/// A save in work.
struct save_operation {
    XSystem* system = nullptr;
    /// Folder that the project file goes to, UTF-8. Pictures inside it are stored relative to it.
    std::string project_folder;
    /// False while a tree is made that goes to no file: picture paths are then stored as they are.
    bool to_file = true;
    /// What paths of pictures have come to so far: many items show few pictures.
    mutable std::unordered_map<std::wstring, std::wstring> picture_paths;
};
