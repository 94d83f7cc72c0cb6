#include "host/core/memory_watch.h"

namespace host {
namespace {

constexpr const char* reason = "out of memory";

thread_local unsigned refusals = 0;

}  // namespace

MemoryWatch::MemoryWatch() : m_former(std::set_new_handler(&refuse_memory)), m_count_before(refusals) {}
MemoryWatch::~MemoryWatch() { std::set_new_handler(m_former); }
bool MemoryWatch::ran_out() const { return refusals != m_count_before; }

void refuse_memory() {
    ++refusals;
    throw std::bad_alloc();
}

bool out_of_memory(const std::string& place, std::string& error) noexcept {
    try {
        error = place.empty() ? reason : place + ": " + reason;
    } catch (const std::bad_alloc&) {
        // So short a text has room in the string itself.
        error = reason;
    }
    return false;
}

}  // namespace host
