// The chain of input listeners and the list of message listeners, which change while they are walked.

#include <gtest/gtest.h>

#include <memory>

#include "host/system/input.h"
#include "host/system/messages.h"

namespace {

using namespace host;

struct Listener final : IInputEventListener {
    Listener(std::string& heard_, char name_) : heard(heard_), name(name_) {}
    bool OnInputEvent(const SInputEvent&) override {
        heard += name;
        const auto action = on_event;
        return action && action();
    }
    std::string& heard;
    char name;
    std::function<bool()> on_event;
};

/// Four listeners a to d, a the first to hear.
class InputChain : public testing::Test {
protected:
    void SetUp() override {
        for (std::size_t i = 0; i < 4; ++i) {
            listeners[i] = std::make_unique<Listener>(heard, static_cast<char>('a' + i));
            chain.add_listener(listeners[i].get(), 900.0f - static_cast<float>(i));
        }
    }
    std::string hear() {
        heard.clear();
        chain.deliver({});
        return heard;
    }

    std::string heard;
    InputManager chain;
    std::unique_ptr<Listener> listeners[4];
};

}  // namespace

TEST_F(InputChain, ServesLargerPrioritiesFirstAndOfEqualOnesTheLaterAdded) {
    EXPECT_EQ(hear(), "abcd");
    chain.add_listener(listeners[0].get(), -1.0f);
    chain.add_listener(nullptr, 1.0f);
    EXPECT_EQ(hear(), "bcda");
    chain.add_listener(listeners[3].get(), 899.0f);
    EXPECT_EQ(hear(), "dbca");
    listeners[1]->on_event = [] { return true; };
    EXPECT_EQ(hear(), "db");
    EXPECT_EQ(chain.size(), 4u);
}

// What b does in the event, who hears that event, and who hears the next.
TEST_F(InputChain, StandsChangesDuringAnEvent) {
    struct Case {
        const char* what;
        std::function<void()> action;
        const char* now;
        const char* next;
    };
    Listener extra(heard, 'x');
    const Case cases[] = {
        {"removes itself", [&] { chain.remove_listener(listeners[1].get()); }, "abcd", "acd"},
        {"destroys itself", [&] { listeners[1].reset(); }, "abcd", "acd"},
        {"destroys the next", [&] { listeners[2].reset(); }, "abd", "abd"},
        {"destroys the one before", [&] { listeners[0].reset(); }, "abcd", "bcd"},
        {"removes all behind", [&] { listeners[2].reset(), chain.remove_listener(listeners[3].get()); }, "ab", "ab"},
        {"adds behind itself", [&] { chain.add_listener(&extra, 0.0f); }, "abcd", "abcdx"},
        {"moves the last to the front", [&] { chain.add_listener(listeners[3].get(), 999.0f); }, "abc", "dabc"},
        {"sends an event that destroys the next",
         [&] {
             listeners[0]->on_event = [this] { return listeners[2].reset(), true; };
             chain.deliver({});
             listeners[0]->on_event = nullptr;
         },
         "abad", "abd"},
    };
    for (const Case& row : cases) {
        SetUp();
        listeners[1]->on_event = [&row] { return row.action(), false; };
        EXPECT_EQ(hear(), row.now) << row.what;
        if (listeners[1]) listeners[1]->on_event = nullptr;
        EXPECT_EQ(hear(), row.next) << row.what;
        chain.remove_listener(&extra);
    }
}

TEST(Messages, ReachEveryListenerThatIsStillThere) {
    struct Hearer final : IMessageListener {
        void process_message(unsigned long id, message_param p1, message_param, message_param, message_param,
                             message_param, message_param p6) override {
            heard.push_back({id, p1, p6});
            if (on_message) on_message();
        }
        std::vector<std::array<message_param, 3>> heard;
        std::function<void()> on_message;
    };
    MessageManager messages;
    Hearer first, second, third;
    for (Hearer* hearer : {&first, &second, &third}) messages.add_listener(hearer);
    first.on_message = [&] { messages.remove_listener(&second); };
    messages.send_msg(35, 1, 0, 0, 0, 0, 6);
    messages.send_msg(21, 0, 0, 0, 0, 0, 0);
    EXPECT_EQ(first.heard, (std::vector<std::array<message_param, 3>>{{35, 1, 6}, {21, 0, 0}}));
    EXPECT_TRUE(second.heard.empty());
    EXPECT_EQ(third.heard, first.heard);
}
