#pragma once

#include <tsl/robin_set.h>

#include <cstdint>
#include <cstring>

#include "engine/guid.h"

namespace host {

/// Identifiers may differ in any of their bytes alone, and each must reach the low bits.
struct IdHash {
    std::size_t operator()(const CGuid& id) const {
        std::uint64_t halves[2];
        std::memcpy(halves, id.bytes(), sizeof halves);
        std::uint64_t mixed = (halves[1] ^ (halves[1] >> 32)) * 0x9E3779B97F4A7C15u;
        mixed ^= halves[0];
        mixed = (mixed ^ (mixed >> 32)) * 0xD6E8FEB86659FD93u;
        return mixed ^ (mixed >> 32);
    }
};

using IdSet = tsl::robin_set<CGuid, IdHash>;

}  // namespace host
