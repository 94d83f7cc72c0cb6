#include "layout/persisted_value.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

// The types that are made of floats, and of how many.
struct FloatType {
    pak_node_type type;
    std::size_t count;
};
constexpr FloatType float_types[] = {{PAK_FLOAT, 1}, {PAK_VEC3, 3}, {PAK_VEC4, 4}};

std::size_t float_count(pak_node_type type) {
    for (const FloatType& row : float_types) {
        if (row.type == type) return row.count;
    }
    return 0;
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
