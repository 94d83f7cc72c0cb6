#pragma once

#include <array>
#include <functional>
#include <vector>

#include "engine/module_base.h"
#include "engine/scene.h"

namespace host {

/// A message on its way.
struct Message {
    unsigned long id = 0;
    std::array<message_param, 6> params{};
};

/// Delivers every message to every module, the sender's own included, in the order of loading.
class MessageManager final : public CMessageManager {
public:
    void send_msg(unsigned long id, message_param p1, message_param p2, message_param p3, message_param p4,
                  message_param p5, message_param p6) override;
    /// Not owned. Safe while a message is delivered.
    void add_listener(IMessageListener* listener);
    void remove_listener(IMessageListener* listener);

    /// Hears each message ahead of the listeners; may be empty.
    std::function<void(const Message&)> hook;

private:
    /// While one lives, those that are removed leave their places empty.
    class Walk {
    public:
        explicit Walk(MessageManager& manager) : m_manager(manager) { ++manager.m_walks; }
        Walk(const Walk&) = delete;
        Walk& operator=(const Walk&) = delete;
        ~Walk();

    private:
        MessageManager& m_manager;
    };

    std::vector<IMessageListener*> m_listeners;
    int m_walks = 0;
};

}  // namespace host
