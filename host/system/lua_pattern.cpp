#include "host/system/lua_pattern.h"

#include <cctype>
#include <cstring>
#include <lua.hpp>

#include "host/system/lua_box.h"

namespace host {
namespace {

constexpr char escape = '%';
// As deep as Lua's own matcher goes into itself.
constexpr int deepest = 200;
// Often enough to end in time, seldom enough to cost nothing.
constexpr std::size_t steps_between_looks = 1u << 14;

int byte(char c) { return static_cast<unsigned char>(c); }

// "%a" and its like; an upper case letter stands for what its lower case does not match.
bool matches_class(int c, int name) {
    bool found = false;
    switch (std::tolower(name)) {
        case 'a':
            found = std::isalpha(c) != 0;
            break;
        case 'c':
            found = std::iscntrl(c) != 0;
            break;
        case 'd':
            found = std::isdigit(c) != 0;
            break;
        case 'g':
            found = std::isgraph(c) != 0;
            break;
        case 'l':
            found = std::islower(c) != 0;
            break;
        case 'p':
            found = std::ispunct(c) != 0;
            break;
        case 's':
            found = std::isspace(c) != 0;
            break;
        case 'u':
            found = std::isupper(c) != 0;
            break;
        case 'w':
            found = std::isalnum(c) != 0;
            break;
        case 'x':
            found = std::isxdigit(c) != 0;
            break;
        default:
            return name == c;
    }
    return std::isupper(name) != 0 ? !found : found;
}

// `set` is at "[", `last` at its "]".
bool matches_set(int c, const char* set, const char* last) {
    const bool wanted = set[1] != '^';
    if (!wanted) ++set;
    while (++set < last) {
        if (*set == escape) {
            if (matches_class(c, byte(*++set))) return wanted;
        } else if (set[1] == '-' && set + 2 < last) {
            set += 2;
            if (byte(set[-2]) <= c && c <= byte(*set)) return wanted;
        } else if (byte(*set) == c) {
            return wanted;
        }
    }
    return !wanted;
}

}  // namespace

LuaPattern::LuaPattern(lua_State* state, std::string_view text, std::string_view pattern)
    : m_state(state),
      m_text(text.data()),
      m_text_end(text.data() + text.size()),
      m_pattern(pattern.data()),
      m_pattern_end(pattern.data() + pattern.size()) {}

void LuaPattern::step(std::size_t work) {
    m_steps += work;
    if (m_steps < steps_between_looks) return;
    m_steps = 0;
    LuaBox::of(m_state).check_time();
}

const char* LuaPattern::match(const char* at) {
    m_level = 0;
    m_depth = 0;
    return match_here(at, m_pattern);
}

// Where the single item that begins at `item` ends: a character, "%x", or a set in brackets.
const char* LuaPattern::end_of_item(const char* item) const {
    if (*item == escape) {
        if (item + 1 == m_pattern_end) luaL_error(m_state, "malformed pattern (ends with '%%')");
        return item + 2;
    }
    if (*item != '[') return item + 1;
    const char* at = item + 1;
    if (at < m_pattern_end && *at == '^') ++at;
    // A "]" that comes first is one of the set.
    do {
        if (at == m_pattern_end) luaL_error(m_state, "malformed pattern (missing ']')");
        const bool escaped = *at++ == escape;
        if (escaped && at < m_pattern_end) ++at;
    } while (at == m_pattern_end || *at != ']');
    return at + 1;
}

bool LuaPattern::matches_single(const char* at, const char* item, const char* item_end) {
    step(static_cast<std::size_t>(item_end - item));
    if (at >= m_text_end) return false;
    const int c = byte(*at);
    switch (*item) {
        case '.':
            return true;
        case escape:
            return matches_class(c, byte(item[1]));
        case '[':
            return matches_set(c, item, item_end - 1);
        default:
            return byte(*item) == c;
    }
}

// Goes forward through the pattern as long as there is only one way, and into itself where there are several.
const char* LuaPattern::match_here(const char* at, const char* pattern) {
    if (++m_depth > deepest) luaL_error(m_state, "pattern too complex");
    const char* next = pattern;
    while (at && next != m_pattern_end) {
        step();
        const char* item = next;
        next = nullptr;
        at = match_item(at, item, next);
        // Without a place to go on from, the rest of the pattern has been matched too.
        if (!next) break;
    }
    --m_depth;
    return at;
}

// Where the item is one that leaves the rest to itself, `next` stays null and the result is the end of the whole match.
const char* LuaPattern::match_item(const char* at, const char* item, const char*& next) {
    if (*item == '(')
        return item + 1 < m_pattern_end && item[1] == ')' ? begin_capture(at, item + 2, position)
                                                          : begin_capture(at, item + 1, unfinished);
    if (*item == ')') return end_capture(at, item + 1);
    if (*item == '$' && item + 1 == m_pattern_end) return at == m_text_end ? at : nullptr;
    if (*item == escape && item + 1 < m_pattern_end) {
        const char kind = item[1];
        if (kind == 'b') {
            const char* end = match_balance(at, item + 2);
            next = item + 4;
            return end;
        }
        if (kind == 'f') {
            const char* set = item + 2;
            if (set >= m_pattern_end || *set != '[') luaL_error(m_state, "missing '[' after '%%f' in pattern");
            next = end_of_item(set);
            return matches_frontier(at, set, next - 1) ? at : nullptr;
        }
        if (std::isdigit(byte(kind)) != 0) {
            next = item + 2;
            return match_again(at, byte(kind));
        }
    }
    const char* item_end = end_of_item(item);
    const char suffix = item_end < m_pattern_end ? *item_end : '\0';
    if (suffix == '*' || suffix == '+' || suffix == '-') return match_repeated(at, item, item_end);
    if (suffix == '?') {
        if (matches_single(at, item, item_end))
            if (const char* end = match_here(at + 1, item_end + 1)) return end;
        next = item_end + 1;
        return at;
    }
    next = item_end;
    return matches_single(at, item, item_end) ? at + 1 : nullptr;
}

const char* LuaPattern::match_repeated(const char* at, const char* item, const char* item_end) {
    if (*item_end == '-') return fewest_first(at, item, item_end);
    if (*item_end == '*') return most_first(at, item, item_end);
    return matches_single(at, item, item_end) ? most_first(at + 1, item, item_end) : nullptr;
}

const char* LuaPattern::most_first(const char* at, const char* item, const char* item_end) {
    std::ptrdiff_t count = 0;
    while (matches_single(at + count, item, item_end)) ++count;
    for (; count >= 0; --count)
        if (const char* end = match_here(at + count, item_end + 1)) return end;
    return nullptr;
}

const char* LuaPattern::fewest_first(const char* at, const char* item, const char* item_end) {
    for (;; ++at) {
        if (const char* end = match_here(at, item_end + 1)) return end;
        if (!matches_single(at, item, item_end)) return nullptr;
    }
}

// "%bxy": `item` is at the x.
const char* LuaPattern::match_balance(const char* at, const char* item) {
    if (m_pattern_end - item < 2) luaL_error(m_state, "malformed pattern (missing arguments to '%%b')");
    if (at >= m_text_end || *at != item[0]) return nullptr;
    int open = 1;
    for (const char* here = at + 1; here < m_text_end; ++here) {
        step();
        if (*here == item[1]) {
            if (--open == 0) return here + 1;
        } else if (*here == item[0]) {
            ++open;
        }
    }
    return nullptr;
}

bool LuaPattern::matches_frontier(const char* at, const char* set, const char* last) {
    step(static_cast<std::size_t>(last - set));
    const int before = at == m_text ? 0 : byte(at[-1]);
    const int here = at == m_text_end ? 0 : byte(*at);
    return !matches_set(before, set, last) && matches_set(here, set, last);
}

const char* LuaPattern::match_again(const char* at, int digit) {
    const Capture& capture = m_captures[static_cast<std::size_t>(capture_named(digit))];
    const auto length = static_cast<std::size_t>(capture.length);
    // A capture of a place has no length that any text could have.
    if (static_cast<std::size_t>(m_text_end - at) < length) return nullptr;
    step(length);
    return std::memcmp(capture.begin, at, length) == 0 ? at + length : nullptr;
}

const char* LuaPattern::begin_capture(const char* at, const char* pattern, std::ptrdiff_t length) {
    if (m_level >= most_captures) luaL_error(m_state, "too many captures");
    m_captures[static_cast<std::size_t>(m_level++)] = {at, length};
    const char* end = match_here(at, pattern);
    if (!end) --m_level;
    return end;
}

const char* LuaPattern::end_capture(const char* at, const char* pattern) {
    Capture& capture = m_captures[static_cast<std::size_t>(capture_to_close())];
    capture.length = at - capture.begin;
    const char* end = match_here(at, pattern);
    if (!end) capture.length = unfinished;
    return end;
}

int LuaPattern::capture_named(int digit) const {
    const int index = digit - '1';
    if (index < 0 || index >= m_level || m_captures[static_cast<std::size_t>(index)].length == unfinished)
        luaL_error(m_state, "invalid capture index %%%d", index + 1);
    return index;
}

int LuaPattern::capture_to_close() const {
    for (int level = m_level - 1; level >= 0; --level)
        if (m_captures[static_cast<std::size_t>(level)].length == unfinished) return level;
    return luaL_error(m_state, "invalid pattern capture");
}

int LuaPattern::count_captures(bool whole_if_none) const { return m_level == 0 && whole_if_none ? 1 : m_level; }

void LuaPattern::push_capture(int index, const char* from, const char* to) const {
    if (index >= m_level) {
        if (index != 0) luaL_error(m_state, "invalid capture index %%%d", index + 1);
        lua_pushlstring(m_state, from, static_cast<std::size_t>(to - from));
        return;
    }
    const Capture& capture = m_captures[static_cast<std::size_t>(index)];
    if (capture.length == unfinished) luaL_error(m_state, "unfinished capture");
    if (capture.length == position)
        lua_pushinteger(m_state, capture.begin - m_text + 1);
    else
        lua_pushlstring(m_state, capture.begin, static_cast<std::size_t>(capture.length));
}

int LuaPattern::push_captures(const char* from, const char* to) const {
    const int count = count_captures(from != nullptr);
    luaL_checkstack(m_state, count, "too many captures");
    for (int index = 0; index < count; ++index) push_capture(index, from, to);
    return count;
}

}  // namespace host
