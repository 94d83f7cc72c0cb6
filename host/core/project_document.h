#pragma once

#include <span>
#include <vector>

#include "engine/animation.h"
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

/// One node of an animation as a project stores it.
struct ProjectAnimNode {
    unsigned type = 0;
    /// Of the item that it animates, which need not be in the project.
    CGuid item;
    /// What the node wrote.
    ProjectNode data{"anim_node"};
    /// As in ProjectItem.
    int line = 0;
};

/// One animation as a project stores it.
struct ProjectAnimation {
    tstringW name;
    anim_info info;
    bool starts_by_itself = false;
    std::vector<ProjectAnimNode> nodes;
    int line = 0;
};

/// A whole project without anything live behind it.
struct ProjectDocument {
    /// One child for each module, of the module's name.
    ProjectNode modules{"modules"};
    /// In the order in which they are read back; parents stand ahead of their children.
    std::vector<ProjectItem> items;
    std::vector<ProjectAnimation> animations;
};

/// Takes a project part by part. What it is given is its own afterwards.
class ProjectParts {
public:
    /// In this order; parents ahead of their children. Of items several at a time are more quickly taken.
    virtual void add_modules(ProjectNode& modules) = 0;
    virtual void add_items(std::span<ProjectItem> items) = 0;
    virtual void add_animation(ProjectAnimation& animation) = 0;
    /// Ahead of the item that it is for. False if another one has it.
    virtual bool take_id(const CGuid& id) = 0;

protected:
    ~ProjectParts() = default;
};

}  // namespace host
