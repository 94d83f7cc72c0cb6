#include "host/system/script_manager.h"

#include <gtest/gtest.h>

#include <lua.hpp>

namespace {

using namespace host;

constexpr int left_as_it_was = 77;

void write_sum(xfunc_desc* call) {
    const VEC4 color = call->params[5]->get_VEC4();
    const float sum = static_cast<float>(call->params[0]->get_INT()) + call->params[1]->get_FLOAT() +
                      static_cast<float>(call->params[2]->get_BOOL()) + call->params[4]->get_VEC().z + color.w;
    call->ret_param->set_STR((std::to_wstring(static_cast<int>(sum)) + call->params[3]->get_STR()).c_str());
}

class Scripts : public testing::Test {
public:
    void SetUp() override {
        xfunc_desc sum;
        sum.func_name = L"sum";
        sum.params = {xparam_desc::create_int_param(0, L"数;1;2"), xparam_desc::create_float_param(0, L"speed"),
                      xparam_desc::create_bool_param(0, L"on"),    xparam_desc::create_str_param(L"", L"name"),
                      xparam_desc::create_vec_param({}, L"place"), xparam_desc::create_vec4_param({}, L"color")};
        sum.ret_param = xparam_desc::create_str_param(L"", L"");
        sum.func = &write_sum;
        scripts.register_xfun(sum, L"test");
        xfunc_desc silent;
        silent.func_name = L"silent";
        silent.ret_param = xparam_desc::create_int_param(left_as_it_was, L"");
        silent.func = [](xfunc_desc*) {};
        scripts.register_xfun(silent, L"test");
        scripts.on_print = [this](const std::string& line) { printed += line + "\n"; };
        scripts.on_error = [this](const std::string& line) { errors += line + "\n"; };
    }
    void run(const std::string& text) { scripts.run(text, {CGuid(), L"按钮", "left_down"}); }

    ScriptManager scripts{nullptr};
    std::string printed, errors;
};

}  // namespace

TEST_F(Scripts, ValuesArriveAsTheyWereGiven) {
    run("print(sum(1, 2.5, true, '名', {10, 20, 30}, {r = 1, g = 2, b = 3, a = 400}))\n"
        "print(sum(1.0, 2, 0, '', {x = 1, y = 2, z = 3}, {0, 0, 0, 0}))\n"
        "print(silent())");
    EXPECT_EQ(printed, "434名\n6\n77\n");
    EXPECT_EQ(errors, "");
}

TEST_F(Scripts, AWrongCallNamesFunctionParameterAndValue) {
    const struct {
        const char* call;
        const char* message;
    } calls[] = {
        {"sum()", "sum takes 6 values, 0 given; parameter 1 (数) is missing"},
        {"silent(1)", "silent takes 0 values, 1 given"},
        {"sum(1.5, 0, 0, '', {}, {})", "sum: parameter 1 (数) must be a whole number of 32 bits, 1.5 given"},
        {"sum('1', 0, 0, '', {}, {})", "sum: parameter 1 (数) must be a whole number of 32 bits, \"1\" given"},
        {"sum(1 << 31, 0, 0, '', {}, {})", "sum: parameter 1 (数) must be a whole number of 32 bits, 2147483648 given"},
        {"sum(1, nil, 0, '', {}, {})", "sum: parameter 2 (speed) must be a number, nil given"},
        {"sum(1, 0, 2, '', {}, {})", "sum: parameter 3 (on) must be true or false (or 1 or 0), 2 given"},
        {"sum(1, 0, 0, print, {}, {})", "sum: parameter 4 (name) must be a text, function given"},
        {"sum(1, 0, 0, 'a\\0b', {}, {})", "sum: parameter 4 (name) must be a text, a text with a zero byte given"},
        {"sum(1, 0, 0, '', {1, 2}, {})", "sum: parameter 5 (place) must be {x, y, z}, a table without number 3 given"},
        {"sum(1, 0, 0, '', 5, {})", "sum: parameter 5 (place) must be {x, y, z}, 5 given"},
        {"sum(1, 0, 0, '', {1, 2, 3}, {})",
         "sum: parameter 6 (color) must be {x, y, z, w} or {r, g, b, a}, a table without them given"},
    };
    for (const auto& row : calls) {
        errors.clear();
        run(std::string("\n") + row.call);
        EXPECT_EQ(errors, "按钮, left_down, line 2: " + std::string(row.message) + "\n");
    }
}

// The budget of the first script covers what it starts: a button may press another that presses the first.
TEST_F(Scripts, FunctionsThatCouldNotBeAddedAreThereOnceTheyCan) {
    bool has_memory = false;
    scripts.set_extra_functions(
        [](lua_State* state) {
            if (!*static_cast<const bool*>(lua_touserdata(state, 1))) return luaL_error(state, "not enough memory");
            lua_pushboolean(state, 1);
            lua_setglobal(state, "extra");
            return 0;
        },
        &has_memory);
    run("print(extra)");
    EXPECT_EQ(printed + errors, "按钮, left_down: not enough memory\n");
    has_memory = true;
    run("print(extra)");
    EXPECT_EQ(printed, "true\n");
}

TEST_F(Scripts, ScriptsThatStartEachOtherComeToAnEnd) {
    static Scripts* self;
    self = this;
    xfunc_desc again;
    again.func_name = L"again";
    again.func = [](xfunc_desc*) { self->run("again()"); };
    scripts.register_xfun(again, L"test");
    run("again()");
    EXPECT_NE(errors, "");
    run("print('alive')");
    EXPECT_EQ(printed, "alive\n");
}
