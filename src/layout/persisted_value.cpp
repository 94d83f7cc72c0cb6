#include "layout/persisted_value.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

// How many floats a property of that type is made of.
std::size_t float_count(pak_node_type type) {
    switch (type) {
        case PAK_FLOAT:
            return 1;
        case PAK_VEC3:
            return 3;
        case PAK_VEC4:
            return 4;
        default:
            return 0;
    }
}

}  // namespace

bool read_value(pack_node* node, const char* key, pak_node_type type, void* value) {
    const std::size_t count = float_count(type);
    if (count == 0) return node->get_property(key, type, value);
    float numbers[4] = {};
    if (!node->get_property(key, type, numbers)) return false;
    if (!std::all_of(numbers, numbers + count, [](float number) { return std::isfinite(number); })) return false;
    std::memcpy(value, numbers, count * sizeof(float));
    return true;
}
