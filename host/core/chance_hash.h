#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <random>

namespace host {

/// A hash that is another one in each run, so that no file can be made whose keys all meet in one place of a table.
inline std::uint64_t chance_hash(const void* bytes, std::size_t count) {
    static const std::array<std::uint64_t, 2> chance = [] {
        std::random_device device;
        const auto number = [&device] { return std::uint64_t{device()} << 32 | device(); };
        return std::array<std::uint64_t, 2>{number(), number()};
    }();
    // Each bit reaches all others.
    const auto mixed = [](std::uint64_t bits) {
        bits = (bits ^ (bits >> 33)) * 0xFF51AFD7ED558CCDu;
        bits = (bits ^ (bits >> 33)) * 0xC4CEB9FE1A85EC53u;
        return bits ^ (bits >> 33);
    };
    std::uint64_t hash = chance[0] + count;
    const char* at = static_cast<const char*>(bytes);
    for (std::size_t left = count; left > 0;) {
        std::uint64_t word = 0;
        const std::size_t taken = left < sizeof word ? left : sizeof word;
        std::memcpy(&word, at, taken);
        hash = mixed(hash ^ word) + chance[1];
        at += taken;
        left -= taken;
    }
    return hash;
}

}  // namespace host
