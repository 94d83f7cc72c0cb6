// The module's own arithmetic.

#include "layout/rounding.h"
#include "legacy/color.h"
#include "legacy/text_format.h"
#include "player/scenario/calls.h"
#include "player/scenario/legacy_values.h"

namespace scenario {

namespace {

Results round(Scenario&, const Arguments& arguments) { return Value(round_half_up(arguments.get<float>(0, "x"))); }

Results dif_align(Scenario& scenario, const Arguments& arguments) {
    return value_of(
        scenario.manager().get_offset_of_dif_align(arguments.get<int>(0, "to"), arguments.get<int>(1, "from"),
                                                   arguments.get<CRect>(2, "frame"), arguments.get<VEC2>(3, "offset")));
}

Results resize_rect(Scenario& scenario, const Arguments& arguments) {
    return value_of(scenario.manager().resize_rect_according_to_root(
        arguments.get<CRect>(0, "rect"), arguments.get<CRect>(1, "old_root"), arguments.get<CRect>(2, "new_root"),
        arguments.get<int>(3, "align"), arguments.get<int>(4, "scale")));
}

Results legacy_color(Scenario&, const Arguments& arguments) {
    return value_of(decode_legacy_color(read_word(arguments.at(0), arguments.where(0, "c"))));
}

Results text_format(Scenario&, const Arguments& arguments) {
    return Value(static_cast<int>(legacy_text_position(read_word(arguments.at(0), arguments.where(0, "v")))));
}

constexpr HostFunction functions[] = {
    {"round_half_up", &round},       {"dif_align", &dif_align},     {"resize_rect", &resize_rect},
    {"legacy_color", &legacy_color}, {"text_format", &text_format},
};

}  // namespace

std::span<const HostFunction> arithmetic_calls() { return functions; }

}  // namespace scenario
