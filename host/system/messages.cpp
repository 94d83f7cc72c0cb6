#include "host/system/messages.h"

#include <algorithm>

namespace host {

void MessageManager::send_msg(unsigned long id, message_param p1, message_param p2, message_param p3, message_param p4,
                              message_param p5, message_param p6) {
    if (hook) hook({id, {p1, p2, p3, p4, p5, p6}});
    // Walked by a copy: there are as many listeners as modules, and a message may load or end one.
    const std::vector<IMessageListener*> listeners = m_listeners;
    for (IMessageListener* listener : listeners) {
        const bool still_there = std::find(m_listeners.begin(), m_listeners.end(), listener) != m_listeners.end();
        if (still_there) listener->process_message(id, p1, p2, p3, p4, p5, p6);
    }
}

void MessageManager::add_listener(IMessageListener* listener) {
    if (listener) m_listeners.push_back(listener);
}

void MessageManager::remove_listener(IMessageListener* listener) { std::erase(m_listeners, listener); }

}  // namespace host
