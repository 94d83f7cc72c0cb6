#include "host/system/input.h"

#include <algorithm>
#include <vector>

namespace host {
namespace {

// Every chain there is, so that a listener that is destroyed without a word leaves all of them.
std::vector<InputManager*>& chains() {
    static std::vector<InputManager*> all;
    return all;
}

}  // namespace

InputManager::InputManager() { chains().push_back(this); }
InputManager::~InputManager() { std::erase(chains(), this); }

void InputManager::add_listener(IInputEventListener* listener, float priority) {
    if (!listener) return;
    remove_listener(listener);
    const auto place = std::find_if(m_chain.begin(), m_chain.end(),
                                    [priority](const Entry& entry) { return !(entry.priority > priority); });
    m_chain.insert(place, {listener, priority, m_next_serial++});
}

void InputManager::remove_listener(IInputEventListener* listener) {
    for (Entry& entry : m_chain)
        if (listener && entry.listener == listener) entry.listener = nullptr;
    if (m_depth == 0) m_chain.remove_if([](const Entry& entry) { return !entry.listener; });
}

// Entries stay in the list while any event is on its way, so the walk never stands on a place that is gone.
bool InputManager::deliver(const SInputEvent& event) {
    const std::uint64_t newcomers = m_next_serial;
    ++m_depth;
    bool used = false;
    for (auto entry = m_chain.begin(); entry != m_chain.end() && !used; ++entry)
        if (entry->listener && entry->serial < newcomers) used = entry->listener->OnInputEvent(event);
    if (--m_depth == 0) m_chain.remove_if([](const Entry& entry) { return !entry.listener; });
    return used;
}

std::size_t InputManager::size() const {
    return static_cast<std::size_t>(
        std::count_if(m_chain.begin(), m_chain.end(), [](const Entry& entry) { return entry.listener; }));
}

}  // namespace host

IInputEventListener::IInputEventListener() = default;

IInputEventListener::~IInputEventListener() {
    for (host::InputManager* chain : host::chains()) chain->remove_listener(this);
}
