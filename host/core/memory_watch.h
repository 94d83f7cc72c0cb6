#pragma once

#include <new>
#include <string>

namespace host {

/// Notices whether memory runs out while the watch lives, also where whoever it happened to kept quiet: a module lets
/// no exception out, so what it has done may be a half. Watches nest. For one thread.
class MemoryWatch {
public:
    MemoryWatch();
    MemoryWatch(const MemoryWatch&) = delete;
    MemoryWatch& operator=(const MemoryWatch&) = delete;
    ~MemoryWatch();
    bool ran_out() const;

private:
    std::new_handler m_former;
    unsigned m_count_before;
};

/// Counts and throws as operator new does: for memory that other libraries ask for.
[[noreturn]] void refuse_memory();

/// Gives false, and `error` as "PLACE: out of memory", or the second part alone where that asks for too much.
bool out_of_memory(const std::string& place, std::string& error) noexcept;

}  // namespace host
