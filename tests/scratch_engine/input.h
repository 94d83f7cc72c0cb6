#pragma once

#include <vector>

#include "engine/engine_system.h"

struct SInputEvent {
    enum Kind { LEFT_DOWN, RIGHT_DOWN, MIDDLE_DOWN, LEFT_UP, RIGHT_UP, MIDDLE_UP, MOVE } kind;
    CPoint position;
};

class ScratchInput final : public CInputManager {
public:
    void add_listener(IInputEventListener* listener, float priority) override;
    void remove_listener(IInputEventListener* listener) override;
    /// True when a listener used the event.
    bool send(const SInputEvent& event);

    std::vector<std::pair<float, IInputEventListener*>> chain;
};
