#include "player/progress.h"

#include <unistd.h>

#include <chrono>
#include <cstdio>

namespace player {

Progress::Progress(std::string what) : m_what(std::move(what)) {
    if (isatty(STDERR_FILENO)) m_thread = std::thread([this] { tick(); });
}

Progress::~Progress() {
    {
        const std::lock_guard lock(m_mutex);
        m_done = true;
    }
    m_end.notify_all();
    if (m_thread.joinable()) m_thread.join();
}

void Progress::tick() {
    std::unique_lock lock(m_mutex);
    bool shown = false;
    for (int seconds = 1; !m_end.wait_for(lock, std::chrono::seconds(1), [this] { return m_done; }); ++seconds) {
        std::fprintf(stderr, "\r%s ... %d s", m_what.c_str(), seconds);
        std::fflush(stderr);
        shown = true;
    }
    // The line goes again, so that what the command prints stands alone.
    if (shown) std::fputs("\r\x1b[K", stderr);
}

}  // namespace player
