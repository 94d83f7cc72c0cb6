#pragma once

#include <cstdint>
#include <string_view>

#include "host/core/chance_hash.h"

namespace host {

/// A name as a key of 16 bytes: a short one in narrow characters lies in the key itself, so that comparing it reads
/// nothing else; any other stays where it is, and must outlive the key.
class NameKey {
public:
    explicit NameKey(std::wstring_view name) {
        if (name.size() > longest_short || !pack(name)) {
            m_words[0] = reinterpret_cast<std::uintptr_t>(name.data());
            m_words[1] = is_elsewhere | name.size();
        }
    }
    std::uint64_t hash() const {
        if (m_words[1] < is_elsewhere) return chance_hash(m_words, sizeof m_words);
        return chance_hash(text().data(), text().size() * sizeof(wchar_t));
    }
    // What is short is so on both sides.
    friend bool operator==(const NameKey& a, const NameKey& b) {
        return a.m_words[1] == b.m_words[1] &&
               (a.m_words[0] == b.m_words[0] || (a.m_words[1] >= is_elsewhere && a.text() == b.text()));
    }

private:
    static constexpr std::size_t longest_short = 15;
    static constexpr std::uint64_t is_elsewhere = std::uint64_t{0xFF} << 56;

    std::wstring_view text() const {
        return {reinterpret_cast<const wchar_t*>(static_cast<std::uintptr_t>(m_words[0])),
                static_cast<std::size_t>(m_words[1] & ~is_elsewhere)};
    }
    // The first character in the lowest byte, the length in the highest. False: a character takes more than a byte.
    bool pack(std::wstring_view name) {
        std::uint32_t all = 0;
        for (std::size_t at = name.size(); at-- > 0;) {
            const auto character = static_cast<std::uint32_t>(name[at]);
            all |= character;
            m_words[1] = m_words[1] << 8 | m_words[0] >> 56;
            m_words[0] = m_words[0] << 8 | character;
        }
        m_words[1] |= std::uint64_t{name.size()} << 56;
        return all <= 0xFF;
    }

    std::uint64_t m_words[2] = {};
};

}  // namespace host
