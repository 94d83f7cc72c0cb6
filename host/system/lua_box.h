#pragma once

// One closed Lua state: no files, no processes, no byte code, no debug library; bounded memory, instructions and time.
// Knows nothing of the engine: functions are added from outside.

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <unordered_map>

struct lua_Debug;
struct lua_State;

namespace host {

struct LuaLimits {
    std::size_t memory_bytes = 64u << 20;
    /// Of one outermost run with everything that it starts. 0: no limit. So few that even a busy machine is through
    /// with them ahead of the time: steps end a script at the same place in every run, the time does not.
    std::uint64_t instructions = 20'000'000;
    /// Less than the second within which whoever clicks gets an answer.
    double seconds = 0.8;
};

/// What went wrong in a script. Empty message: nothing.
struct LuaError {
    /// From 1; 0 where no line is known.
    int line = 0;
    std::string message;
};

class LuaBox {
public:
    /// Throws std::bad_alloc if not even an empty state fits into the memory limit.
    explicit LuaBox(const LuaLimits& limits = {});
    LuaBox(const LuaBox&) = delete;
    LuaBox& operator=(const LuaBox&) = delete;
    ~LuaBox();

    /// Carries the text out, compiled once for each text. May be called from inside a run: the budget of the outermost
    /// run covers all. False: `error` says what and where. A text of another name than a script's has no lines of its
    /// own in `error`: these are the lines of the script that called it, with its own place in the message.
    bool run(const std::string& text, LuaError& error, const std::string& name = "script");
    /// Calls `body(state)` where Lua errors are caught; for setting the state up. False: `error` as above.
    bool protect(int (*body)(lua_State*), void* argument, LuaError& error);
    /// The same with tighter limits than the run's around it: `limits.memory_bytes` is what may come on top of what is
    /// held now. The outermost such call counts for all that it starts.
    bool protect_within(const LuaLimits& limits, int (*body)(lua_State*), void* argument, LuaError& error);

    lua_State* state() const { return m_state; }
    /// True while a script runs.
    bool is_running() const { return m_depth > 0; }
    /// For functions that may take long: raises a Lua error once the time of the run is up.
    void check_time();
    std::size_t memory_used() const { return m_memory_used; }
    /// The box of a state.
    static LuaBox& of(lua_State* state);

    /// Gets each line that a script prints, UTF-8, without a line end; null prints nowhere.
    std::function<void(const std::string&)> on_print;
    /// Room for a text that must outlive the C++ objects of a function which is about to raise a Lua error: Lua leaves
    /// without running destructors.
    std::string raised;

private:
    static void* allocate(void* box, void* block, std::size_t old_size, std::size_t new_size);
    [[noreturn]] void raise_expired();
    static void on_count(lua_State* state, lua_Debug* record);
    bool call_protected(int (*body)(lua_State*), void* argument, LuaError& error);
    void begin_budget();
    bool is_time_up();
    void set_hook();

    LuaLimits m_limits;
    // Counted from the state's first block on, so it stands ahead of the state.
    std::size_t m_memory_used = 0;
    lua_State* m_state = nullptr;
    int m_depth = 0;
    bool m_is_within = false;
    std::uint64_t m_instructions = 0;
    std::chrono::steady_clock::time_point m_deadline;
    // What the thread had worked when the run began, in seconds.
    double m_work_at_start = 0.0;
    // Once a limit is passed, every further instruction of the run fails, so that no pcall outlives it.
    const char* m_expired = nullptr;
    // Text to its compiled chunk in the registry.
    std::unordered_map<std::string, int> m_chunks;
    friend struct LuaRun;
};

}  // namespace host
