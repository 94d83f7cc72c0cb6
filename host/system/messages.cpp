#include "host/system/messages.h"

#include <algorithm>

namespace host {

void MessageManager::send_msg(unsigned long id, message_param p1, message_param p2, message_param p3, message_param p4,
                              message_param p5, message_param p6) {
    if (hook) hook({id, {p1, p2, p3, p4, p5, p6}});
    // A message may load a listener, who hears the next one first, or end one.
    const Walk walk(*this);
    for (std::size_t at = 0, count = m_listeners.size(); at < count; ++at) {
        if (m_listeners[at]) m_listeners[at]->process_message(id, p1, p2, p3, p4, p5, p6);
    }
}

MessageManager::Walk::~Walk() {
    if (--m_manager.m_walks == 0) std::erase(m_manager.m_listeners, nullptr);
}

void MessageManager::add_listener(IMessageListener* listener) {
    if (listener) m_listeners.push_back(listener);
}

void MessageManager::remove_listener(IMessageListener* listener) {
    std::replace(m_listeners.begin(), m_listeners.end(), listener, static_cast<IMessageListener*>(nullptr));
    if (m_walks == 0) std::erase(m_listeners, nullptr);
}

}  // namespace host
