#pragma once

#include <vector>

#include "host/system/engine.h"
#include "scene/crowd.h"
#include "scene/null_device.h"

namespace bench {

/// An engine with the module and the null device, nothing behind the GUI, and time in the caller's hand. Throws where
/// something could not be loaded or opened: a figure of half a scene would be a lie.
class Show {
public:
    /// An empty project.
    Show() : Show(device) {}
    /// The same on that device, which must outlive it; the null device is idle then.
    explicit Show(host::Device& screen);
    /// The crowd, opened as a project that belongs to that path.
    explicit Show(const Crowd& crowd, const std::string& path = {});

    /// Gives each of the items a node of key frames, in one animation that plays without an end once the project runs.
    void animate(const std::vector<CGuid>& items);

    NullDevice device;
    host::Engine engine;
};

/// A folder of its own for this program, in memory where the system has such a place, gone with the object.
class ScratchFolder {
public:
    ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder();

    std::string file(const std::string& name) const { return m_path + "/" + name; }

private:
    std::string m_path;
};

/// The crowd as the engine saves it, with its pictures. Throws as above.
void write_crowd(const Crowd& crowd, const std::string& path);

}  // namespace bench
