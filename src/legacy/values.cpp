#include "legacy/values.h"

#include <cmath>
#include <vector>

#include "fonts/code_units.h"

namespace {

template <class T>
T read_as(CPakNode& node, const char* key, legacy_code code, T missing) {
    node.find_data(key, code, &missing, 0);
    return missing;
}

// Old editors filled their memory with this unit, and a text that never had a zero goes on in it.
constexpr char16_t end_mark = 0xABAB;

}  // namespace

int read_legacy_int(CPakNode& node, const char* key, int missing) { return read_as(node, key, LEGACY_INT, missing); }

float read_legacy_float(CPakNode& node, const char* key, float missing) {
    const float value = read_as(node, key, LEGACY_FLOAT, missing);
    return std::isfinite(value) ? value : missing;
}

float read_legacy_moment(CPakNode& node, const char* key) {
    const float seconds = read_as(node, key, LEGACY_INT, 0.0f);
    return std::isfinite(seconds) ? seconds : 0.0f;
}

VEC3 read_legacy_vec3(CPakNode& node, const char* key) {
    const VEC3 value = read_as(node, key, LEGACY_VEC3, VEC3());
    return std::isfinite(value.x) && std::isfinite(value.y) && std::isfinite(value.z) ? value : VEC3();
}

CPoint read_legacy_pair(CPakNode& node, const char* key) { return read_as(node, key, LEGACY_PAIR, CPoint()); }

CGuid read_legacy_guid(CPakNode& node, const char* key) { return read_as(node, key, LEGACY_GUID, CGuid()); }

tstringW read_legacy_text(CPakNode& node, const char* key, legacy_code code) {
    char16_t units[legacy_buffer_units(LEGACY_PATH)] = {};
    node.find_data(key, code, units, 0);
    // An engine that fills the buffer to the brim leaves no zero.
    units[legacy_buffer_units(code) - 1] = 0;
    return wide_from_units(units);
}

tstringW read_legacy_text_data(CPakNode& node) {
    const int count = node.get_length() / 2;
    if (count <= 0) return {};
    std::vector<char16_t> units(static_cast<std::size_t>(count));
    node.get_buffer_to_mem_allocated(units.data(), count * 2);
    std::size_t length = 0;
    while (length < units.size() && units[length] != 0 && units[length] != end_mark) ++length;
    return wide_from_units({units.data(), length});
}
