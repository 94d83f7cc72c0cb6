#pragma once

#include <string>
#include <vector>

#include "engine/guid.h"
#include "host/core/project_tree.h"

namespace host {

/// One item of the scene as a project stores it.
struct ProjectItem {
    unsigned long type = 0;
    CGuid id;
    /// All bytes 0: at the top of the scene.
    CGuid parent;
    tstringW name;
    bool visible = true;
    /// The bit set of the actor.
    int flag = 0;
    /// What the item wrote.
    ProjectNode data{"item"};
    /// Where it stands in its file, from 1; 0 if it comes from no file.
    int line = 0;
};

/// A whole project without anything live behind it.
struct ProjectDocument {
    /// One child for each module, of the module's name.
    ProjectNode modules{"modules"};
    /// In the order in which they are read back; parents stand ahead of their children.
    std::vector<ProjectItem> items;
};

}  // namespace host
