#include "host/system/lua_sort.h"

#include <algorithm>
#include <climits>
#include <lua.hpp>

#include "host/system/lua_box.h"

namespace host {
namespace {

// Places on the stack: the table to sort, the comparison or nil, and two tables between which the elements go.
constexpr int table = 1, comparison = 2, first_row = 3, second_row = 4;
// Comparisons between two looks at the time: of long texts a few take a while.
constexpr unsigned look_every = 16;

class Merging {
public:
    explicit Merging(lua_State* L) : m_state(L) {}

    // The elements of [begin, middle) and [middle, end), each in order, to the same places of the other row.
    void merge(int from, int to, lua_Integer begin, lua_Integer middle, lua_Integer end) {
        lua_Integer left = begin, right = middle;
        for (lua_Integer place = begin; place < end; ++place) {
            const bool takes_right = left == middle || (right < end && is_before(from, right, left));
            lua_rawgeti(m_state, from, takes_right ? right++ : left++);
            lua_rawseti(m_state, to, place);
        }
    }

private:
    bool is_before(int row, lua_Integer a, lua_Integer b) {
        if (++m_comparisons % look_every == 0) LuaBox::of(m_state).check_time();
        const bool is_own = !lua_isnil(m_state, comparison);
        if (is_own) lua_pushvalue(m_state, comparison);
        lua_rawgeti(m_state, row, a);
        lua_rawgeti(m_state, row, b);
        bool before = false;
        if (is_own) {
            lua_call(m_state, 2, 1);
            before = lua_toboolean(m_state, -1) != 0;
            lua_pop(m_state, 1);
        } else {
            before = lua_compare(m_state, -2, -1, LUA_OPLT) != 0;
            lua_pop(m_state, 2);
        }
        return before;
    }

    lua_State* m_state;
    unsigned m_comparisons = 0;
};

void copy(lua_State* L, int from, int to, lua_Integer count) {
    for (lua_Integer place = 1; place <= count; ++place) {
        lua_rawgeti(L, from, place);
        lua_rawseti(L, to, place);
    }
}

}  // namespace

int sort_table(lua_State* L) {
    luaL_checktype(L, table, LUA_TTABLE);
    lua_settop(L, comparison);
    if (!lua_isnil(L, comparison)) luaL_checktype(L, comparison, LUA_TFUNCTION);
    const auto count = static_cast<lua_Integer>(lua_rawlen(L, table));
    luaL_argcheck(L, count < INT_MAX, 1, "array too big");
    for (int row = 0; row < 2; ++row) lua_createtable(L, static_cast<int>(count), 0);
    copy(L, table, first_row, count);
    Merging merging(L);
    int from = first_row, to = second_row;
    for (lua_Integer run = 1; run < count; run *= 2) {
        for (lua_Integer begin = 1; begin <= count; begin += 2 * run)
            merging.merge(from, to, begin, std::min(begin + run, count + 1), std::min(begin + 2 * run, count + 1));
        std::swap(from, to);
    }
    copy(L, from, table, count);
    return 0;
}

}  // namespace host
