#pragma once

// Where the nodes of project trees lie: given out piece by piece, released as a whole.

#include <array>
#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace host {

class ProjectMemory {
public:
    ProjectMemory() = default;
    ProjectMemory(const ProjectMemory&) = delete;
    ProjectMemory& operator=(const ProjectMemory&) = delete;
    ~ProjectMemory() { end_all(); }

    /// Aligned for pointers and numbers; holds nothing yet.
    void* take(std::size_t size) { return m_pieces.take(rounded(size)); }
    /// True if the piece, of that size so far, has become larger where it lies: only the last one taken can.
    bool extend(void* piece, std::size_t size, std::size_t larger) {
        return m_pieces.extend(piece, rounded(size), rounded(larger));
    }
    /// A copy that lives as long as this object. Few keys are written again and again, so that most are there already.
    std::string_view keep(std::string_view name);
    /// Calls `end` with the object in a piece when the pieces are released.
    void at_end(void* object, void (*end)(void*));
    /// That a tree which is written again and again has left little behind in it.
    bool is_small() const { return m_pieces.used_blocks() <= 6 && m_names.used_blocks() <= 6; }
    /// All pieces are free to be taken again, and so is what was kept, for no tree may refer to it. A few names stay:
    /// the next tree mostly has the same.
    void reset();

private:
    class Blocks {
    public:
        char* take(std::size_t size) {
            if (size > static_cast<std::size_t>(m_end - m_free)) next_block(size);
            char* const piece = m_free;
            m_free += size;
            return piece;
        }
        bool extend(void* piece, std::size_t size, std::size_t larger);
        std::size_t used_blocks() const { return m_used_blocks; }
        void reset();

    private:
        struct Block {
            std::unique_ptr<char[]> bytes;
            std::size_t size;
        };
        void next_block(std::size_t size);

        std::vector<Block> m_blocks;
        std::size_t m_used_blocks = 0;
        char* m_free = nullptr;
        char* m_end = nullptr;
    };

    static std::size_t rounded(std::size_t size) {
        constexpr std::size_t alignment = alignof(std::max_align_t);
        return (size + alignment - 1) / alignment * alignment;
    }

    struct End {
        End* next;
        void* object;
        void (*end)(void*);
    };
    void end_all();

    Blocks m_pieces;
    End* m_ends = nullptr;
    Blocks m_names;
    // The names kept last, by length and two of their characters.
    std::array<std::string_view, 128> m_known{};
};

}  // namespace host
