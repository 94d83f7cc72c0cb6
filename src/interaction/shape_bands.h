#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "layout/shape.h"

/// A set of texture modes.
class ModeSet {
public:
    template <class... Modes>
    constexpr explicit ModeSet(Modes... modes) : m_bits((0u | ... | bit(modes))) {}
    constexpr bool has(int mode) const { return (m_bits & bit(mode)) != 0; }

private:
    // All that are no modes are alike.
    static constexpr unsigned bit(int mode) { return mode >= MODE_NORMAL && mode <= MODE_DOWN ? 1u << mode : 0u; }
    unsigned m_bits;
};

/// Which shapes of a list the mouse can find at a place, told without a look at each. The view is cut into columns and
/// rows, and each of them knows which shapes reach into it; besides, each texture mode knows its shapes. All this holds
/// until the list changes or a rectangle or a mode is written; then it is read anew, but only once some events in a row
/// have found all as it was, for reading costs more than a walk over all shapes.
class ShapeBands {
public:
    /// Ahead of a walk.
    void approach(const ItemList<CSimpleGUIShape>& shapes, const CRect& view);
    /// Behind it.
    void leave(const ItemList<CSimpleGUIShape>& shapes);
    /// False: only a look at each shape tells.
    bool are_true_of(const ItemList<CSimpleGUIShape>& shapes) const { return m_read == present(shapes); }
    /// Behind the last shape among the first `end` places of the list that reaches to `position` or has a mode that is
    /// not among `quiet`; some others count too. 0 if there is none.
    std::size_t end_of_last(std::size_t end, CPoint position, ModeSet quiet) const;
    /// The shape at that place got its mode by set_texture_mode, which was called by `set`.
    template <class Set>
    void follow(const ItemList<CSimpleGUIShape>& shapes, std::size_t place, const CSimpleGUIShape& shape, Set set) {
        const bool was_true = are_true_of(shapes);
        const std::uint64_t writes = CSimpleGUIShape::s_noted_writes;
        set();
        if (was_true && CSimpleGUIShape::s_noted_writes == writes + 1) take_mode(place, shape);
    }
    void forget() { *this = ShapeBands(); }

private:
    using Word = std::uint64_t;
    /// A bit for each place of the list.
    using Places = std::vector<Word>;

    /// Bands of one direction.
    class Axis {
    public:
        void clear(int length, std::size_t words);
        void add(std::size_t place, std::int32_t begin, std::int32_t end);
        const Word* band_at(std::int32_t position) const { return &m_bits[band_of(position) * m_words]; }
        const Word* everywhere() const { return &m_bits[m_count * m_words]; }

    private:
        // The first and the last one reach on without end.
        std::size_t band_of(std::int32_t position) const;

        int m_shift = 0;
        std::size_t m_count = 0;
        std::size_t m_words = 0;
        // One band after the other; behind them the shapes that reach over many.
        Places m_bits;
    };

    void read(const ItemList<CSimpleGUIShape>& shapes, const CRect& view);
    void take_mode(std::size_t place, const CSimpleGUIShape& shape);

    /// What the list and its shapes were like, as two counts.
    struct Moment {
        std::uint64_t list = 0;
        std::uint64_t writes = 0;
        friend bool operator==(Moment, Moment) = default;
    };
    static Moment present(const ItemList<CSimpleGUIShape>& shapes) {
        return {shapes.revision(), CSimpleGUIShape::s_noted_writes};
    }

    Moment m_read;
    Moment m_left;
    int m_still_walks = 0;
    Axis m_columns;
    Axis m_rows;
    // By mode; those that are no modes at 0.
    std::array<Places, MODE_DOWN + 1> m_of_mode;
};
