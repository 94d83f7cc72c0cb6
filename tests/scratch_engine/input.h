#pragma once

#include <vector>

#include "engine/engine_system.h"

/// Knows its listeners and sends them nothing: what the mouse does is told by scenarios.
class ScratchInput final : public CInputManager {
public:
    void add_listener(IInputEventListener* listener, float priority) override;
    void remove_listener(IInputEventListener* listener) override;

    std::vector<std::pair<float, IInputEventListener*>> chain;
};
