#pragma once

#include <cstdint>
#include <list>

#include "engine/input.h"

namespace host {

enum class InputKind {
    LEFT_DOWN,
    RIGHT_DOWN,
    MIDDLE_DOWN,
    LEFT_UP,
    RIGHT_UP,
    MIDDLE_UP,
    MOVE,
    WHEEL,
    LEFT_DOUBLE,
    RIGHT_DOUBLE,
    MIDDLE_DOUBLE,
    LEFT_CLICK,
    RIGHT_CLICK,
    MIDDLE_CLICK,
    ZOOM_START,
    ZOOMING,
    KEY_DOWN,
    KEY_UP,
    CHARACTER,
    CTRL_DOWN,
    CTRL_UP,
};

}  // namespace host

struct SInputEvent {
    host::InputKind kind = host::InputKind::MOVE;
    /// Modifier keys, as a bit set.
    unsigned flags = 0;
    /// In view pixels.
    CPoint position;
    /// Turns of the wheel, 120 for a notch.
    short wheel = 0;
    float zoom_factor = 1.0f;
    /// Key or character, with the system's further facts.
    unsigned key = 0;
    long key_info = 0;
};

namespace host {

/// The chain of listeners. Larger priorities are served first; of equal ones the later added, so that a tool put on top
/// of another of its rank hears first. A listener stands in the chain once: adding it again moves it.
class InputManager final : public CInputManager {
public:
    InputManager();
    InputManager(const InputManager&) = delete;
    InputManager& operator=(const InputManager&) = delete;
    ~InputManager();

    void add_listener(IInputEventListener* listener, float priority) override;
    void remove_listener(IInputEventListener* listener) override;

    /// True if a listener used the event. Listeners may come, go and be destroyed while it is on its way: whoever came
    /// hears from the next event on, whoever went hears nothing more.
    bool deliver(const SInputEvent& event);
    /// Number of listeners in the chain.
    std::size_t size() const;

private:
    struct Entry {
        // Null: gone, to be swept when no event is on its way.
        IInputEventListener* listener;
        float priority;
        std::uint64_t serial;
    };
    std::list<Entry> m_chain;
    std::uint64_t m_next_serial = 1;
    int m_depth = 0;
};

}  // namespace host
