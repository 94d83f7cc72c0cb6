#pragma once

#include <tsl/robin_set.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <random>

#include "engine/guid.h"

namespace host {

/// Another one in each run, so that no file can be made whose identifiers all meet in one place.
struct IdHash {
    std::size_t operator()(const CGuid& id) const {
        static const std::array<std::uint64_t, 2> chance = [] {
            std::random_device device;
            const auto number = [&device] { return std::uint64_t{device()} << 32 | device(); };
            return std::array<std::uint64_t, 2>{number(), number()};
        }();
        std::uint64_t halves[2];
        std::memcpy(halves, id.bytes(), sizeof halves);
        return mixed(mixed(halves[0] ^ chance[0]) + (halves[1] ^ chance[1]));
    }

private:
    // Each bit reaches all others.
    static std::uint64_t mixed(std::uint64_t bits) {
        bits = (bits ^ (bits >> 33)) * 0xFF51AFD7ED558CCDu;
        bits = (bits ^ (bits >> 33)) * 0xC4CEB9FE1A85EC53u;
        return bits ^ (bits >> 33);
    }
};

using IdSet = tsl::robin_set<CGuid, IdHash>;

}  // namespace host
