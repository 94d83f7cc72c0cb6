// `sgui functions`: the reference of script functions, and its form for a terminal.

#include <algorithm>
#include <iostream>

#include "host/core/text_conversion.h"
#include "player/commands.h"
#include "player/function_reference.h"

namespace player {

namespace {

// Indexed by FunctionsForm.
constexpr std::string (*writers[])(const FunctionList&) = {&function_table, &function_json, &function_markdown,
                                                           &function_stubs};

}  // namespace

std::string function_table(const FunctionList& functions) {
    std::size_t widest = 0;
    for (const auto& function : functions) widest = std::max(widest, signature_of(*function).size());
    std::string text;
    const std::wstring* category = nullptr;
    for (const auto& function : functions) {
        if (!category || *category != function->category) text += to_utf8(function->category) + "\n";
        category = &function->category;
        std::string line = "  " + signature_of(*function);
        line.resize(widest + 4, ' ');
        const auto& result = function->desc.ret_param;
        std::string type = result ? std::string(lua_type_of(*result)) : std::string();
        type.resize(9, ' ');
        text += line + type + one_line(function->desc.show_name) + "\n";
    }
    return text;
}

int functions(const FunctionsOptions& options) {
    std::string error;
    const auto session = Session::start(host::SdlDevice::in_memory(), options.module, error);
    if (!session) return fail(error);
    std::cout << writers[options.form](session->engine().scripts().functions()) << std::flush;
    return std::cout ? EXIT_DONE : fail("the reference could not be written");
}

}  // namespace player
