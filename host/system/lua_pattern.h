#pragma once

// Lua's patterns, matched step by step: Lua's own matcher can run for hours within one call, where no limit of a box
// sees it. This one gives the same results and looks at the time of the run as it goes.

#include <array>
#include <cstddef>
#include <string_view>

struct lua_State;

namespace host {

/// One attempt at a pattern after the other over one text. Owns nothing, so that Lua errors may leave it anywhere.
class LuaPattern {
public:
    /// Both must outlive it. `pattern` is without the anchor that may begin it.
    LuaPattern(lua_State* state, std::string_view text, std::string_view pattern);

    /// The end of the match that begins at `at`, or null. Raises Lua errors for a malformed pattern and when the time
    /// of the run is up.
    const char* match(const char* at);

    /// Of the last match: the captures, or the whole match where there are none. Raises a Lua error for an unfinished
    /// capture.
    int count_captures(bool whole_if_none) const;
    /// Pushes one of them; `from` and `to` are the whole match.
    void push_capture(int index, const char* from, const char* to) const;
    int push_captures(const char* from, const char* to) const;

private:
    static constexpr int most_captures = 32;
    static constexpr std::ptrdiff_t unfinished = -1;
    static constexpr std::ptrdiff_t position = -2;
    struct Capture {
        const char* begin;
        std::ptrdiff_t length;
    };

    void step(std::size_t work = 1);
    const char* match_here(const char* at, const char* pattern);
    const char* match_item(const char* at, const char* item, const char*& next);
    const char* match_repeated(const char* at, const char* item, const char* item_end);
    const char* most_first(const char* at, const char* item, const char* item_end);
    const char* fewest_first(const char* at, const char* item, const char* item_end);
    const char* match_balance(const char* at, const char* item);
    const char* match_again(const char* at, int digit);
    const char* begin_capture(const char* at, const char* pattern, std::ptrdiff_t length);
    const char* end_capture(const char* at, const char* pattern);
    bool matches_frontier(const char* at, const char* set, const char* set_end);
    bool matches_single(const char* at, const char* item, const char* item_end);
    const char* end_of_item(const char* item) const;
    int capture_named(int digit) const;
    int capture_to_close() const;

    lua_State* m_state;
    const char* m_text;
    const char* m_text_end;
    const char* m_pattern;
    const char* m_pattern_end;
    int m_level = 0;
    int m_depth = 0;
    std::size_t m_steps = 0;
    std::array<Capture, most_captures> m_captures;
};

/// Puts find, match, gmatch and gsub on this matcher into the table on top of the stack. Raises Lua errors.
void set_pattern_functions(lua_State* state);

}  // namespace host
