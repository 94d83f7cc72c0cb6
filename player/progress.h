#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace player {

/// Tells on a terminal what the program is at once that takes longer than a second. Elsewhere it is silent.
class Progress {
public:
    explicit Progress(std::string what);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

private:
    void tick();

    std::string m_what;
    std::mutex m_mutex;
    std::condition_variable m_end;
    bool m_done = false;
    std::thread m_thread;
};

}  // namespace player
