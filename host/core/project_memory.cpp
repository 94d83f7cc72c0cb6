#include "host/core/project_memory.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "host/core/plain_bytes.h"

namespace host {

std::string_view ProjectMemory::keep(std::string_view name) {
    if (name.empty()) return "";
    const auto byte = [name](std::size_t at) { return static_cast<unsigned char>(name[at]); };
    const std::size_t mixed = byte(name.size() - 1) * 5u + byte(name.size() / 2) * 3u + name.size() * 7u;
    std::string_view& known = m_known[mixed % m_known.size()];
    if (is_same(known, name)) return known;
    char* const copy = m_names.take(name.size());
    std::memcpy(copy, name.data(), name.size());
    return known = {copy, name.size()};
}

void ProjectMemory::at_end(void* object, void (*end)(void*)) {
    m_ends = new (take(sizeof(End))) End{m_ends, object, end};
}

void ProjectMemory::end_all() {
    while (m_ends) {
        const End last = *m_ends;
        m_ends = last.next;
        last.end(last.object);
    }
}

void ProjectMemory::reset() {
    end_all();
    m_pieces.reset();
    if (m_names.used_blocks() <= 2) return;
    m_names.reset();
    m_known = {};
}

bool ProjectMemory::Blocks::extend(void* piece, std::size_t size, std::size_t larger) {
    char* const begin = static_cast<char*>(piece);
    if (!piece || begin + size != m_free || larger > static_cast<std::size_t>(m_end - begin)) return false;
    m_free = begin + larger;
    return true;
}

void ProjectMemory::Blocks::reset() {
    m_used_blocks = 0;
    m_free = m_end = nullptr;
}

void ProjectMemory::Blocks::next_block(std::size_t size) {
    constexpr std::size_t first_size = 1024;
    constexpr std::size_t largest_size = 65536;
    while (m_used_blocks < m_blocks.size() && m_blocks[m_used_blocks].size < size) ++m_used_blocks;
    if (m_used_blocks == m_blocks.size()) {
        const std::size_t usual = m_blocks.empty() ? first_size : std::min(m_blocks.back().size * 2, largest_size);
        const std::size_t fitting = std::max(size, usual);
        m_blocks.push_back({std::unique_ptr<char[]>(new char[fitting]), fitting});
    }
    const Block& block = m_blocks[m_used_blocks++];
    m_free = block.bytes.get();
    m_end = m_free + block.size;
}

}  // namespace host
