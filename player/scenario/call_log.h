#pragma once

#include <optional>

#include "host/system/engine.h"
#include "host/system/platform.h"
#include "player/scenario/value.h"

namespace scenario {

/// What the module told the engine and the system, in order. What the engine does of its own accord stays out of it.
class CallLog {
public:
    /// Listens at every place of the engine where the module speaks. The engine must not outlive the log's use: the
    /// log is let go when the engine closes.
    explicit CallLog(host::Engine& engine);
    CallLog(const CallLog&) = delete;
    CallLog& operator=(const CallLog&) = delete;
    ~CallLog();

    void add(Value call) {
        if (m_muted == 0) m_calls.push_back(std::move(call));
    }
    /// A script of the item runs; `event` is its key.
    void add_script(const std::wstring& item, const std::string& event);
    /// Everything since the last time.
    Value take();

    /// While it lives the engine speaks for itself, and nothing is written down.
    class Mute {
    public:
        explicit Mute(CallLog& log) : m_log(log) { ++m_log.m_muted; }
        ~Mute() { --m_log.m_muted; }
        Mute(const Mute&) = delete;
        Mute& operator=(const Mute&) = delete;

    private:
        CallLog& m_log;
    };

    /// What the system answers for the cursor's place.
    CPoint cursor;
    /// Which fonts the system lists; nothing where it can't. None at first, whatever the machine has.
    std::optional<font_list> fonts = font_list();

private:
    Value m_calls = Value::array();
    int m_muted = 0;
};

}  // namespace scenario
