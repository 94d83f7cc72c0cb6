#include "interaction/shape_bands.h"

#include <algorithm>
#include <bit>
#include <new>

#include "layout/approach.h"

namespace {

constexpr std::size_t bits_of_word = 64;

// Fewer shapes are looked at sooner than their bands.
constexpr std::size_t few = 64;

// So many walks in a row must leave all as it was ahead of a reading, which costs about as much as they do.
constexpr int walks_of_a_reading = 2;

constexpr int most_bands = 128;

// A shape that reaches over more is noted once, for all bands.
constexpr std::size_t widest_reach = 16;

void put(std::uint64_t* words, std::size_t place) {
    words[place / bits_of_word] |= std::uint64_t{1} << (place % bits_of_word);
}

constexpr std::size_t slot_of(int mode) {
    return mode >= MODE_NORMAL && mode <= MODE_DOWN ? static_cast<std::size_t>(mode) : 0;
}

}  // namespace

void ShapeBands::Axis::clear(int length, std::size_t words) {
    const int last = std::max(length, 1) - 1;
    m_shift = 0;
    while ((last >> m_shift) >= most_bands) ++m_shift;
    m_count = static_cast<std::size_t>(last >> m_shift) + 1;
    m_words = words;
    m_bits.assign((m_count + 1) * m_words, 0);
}

std::size_t ShapeBands::Axis::band_of(std::int32_t position) const {
    return static_cast<std::size_t>(std::clamp(position >> m_shift, 0, static_cast<int>(m_count) - 1));
}

void ShapeBands::Axis::add(std::size_t place, std::int32_t begin, std::int32_t end) {
    if (begin >= end) return;
    std::size_t first = band_of(begin);
    std::size_t last = band_of(end - 1);
    if (last - first >= widest_reach) first = last = m_count;
    for (std::size_t band = first; band <= last; ++band) put(&m_bits[band * m_words], place);
}

void ShapeBands::read(const ItemList<CSimpleGUIShape>& shapes, const CRect& view) {
    const auto places = static_cast<std::size_t>(shapes.end() - shapes.begin()) + shapes.first_place();
    const std::size_t words = places / bits_of_word + 1;
    m_columns.clear(view.Width(), words);
    m_rows.clear(view.Height(), words);
    for (Places& of_mode : m_of_mode) of_mode.assign(words, 0);
    Approach approach(
        shapes.begin(), shapes.end(),
        [](const CSimpleGUIShape& shape) {
            fetch(&shape.m_rect);
            fetch(&shape.m_texture_mode);
        },
        [](const CSimpleGUIShape&) {});
    std::size_t place = shapes.first_place();
    for (const CSimpleGUIShape* shape : shapes) {
        approach.next();
        if (shape) {
            const CRect& rect = shape->get_rect();
            m_columns.add(place, rect.left, rect.right);
            m_rows.add(place, rect.top, rect.bottom);
            put(m_of_mode[slot_of(shape->m_texture_mode)].data(), place);
        }
        ++place;
    }
    m_read = present(shapes);
}

void ShapeBands::approach(const ItemList<CSimpleGUIShape>& shapes, const CRect& view) {
    const bool is_still = present(shapes) == m_left;
    if (!is_still) m_still_walks = 0;
    if (are_true_of(shapes) || shapes.size() < few || m_still_walks < walks_of_a_reading) return;
    try {
        read(shapes, view);
    } catch (const std::bad_alloc&) {
        // Walks do without.
        forget();
    }
}

void ShapeBands::leave(const ItemList<CSimpleGUIShape>& shapes) {
    m_left = present(shapes);
    m_still_walks = std::min(m_still_walks + 1, walks_of_a_reading);
}

std::size_t ShapeBands::end_of_last(std::size_t end, CPoint position, ModeSet quiet) const {
    if (end == 0) return 0;
    const Word* const column = m_columns.band_at(position.x);
    const Word* const all_columns = m_columns.everywhere();
    const Word* const row = m_rows.band_at(position.y);
    const Word* const all_rows = m_rows.everywhere();
    const Word* loud[MODE_DOWN + 1];
    std::size_t loud_count = 0;
    for (std::size_t mode = 0; mode < m_of_mode.size(); ++mode) {
        if (!quiet.has(static_cast<int>(mode))) loud[loud_count++] = m_of_mode[mode].data();
    }
    std::size_t word = (end - 1) / bits_of_word;
    Word wanted = ~Word{0} >> (bits_of_word - 1 - (end - 1) % bits_of_word);
    for (;;) {
        Word found = (column[word] | all_columns[word]) & (row[word] | all_rows[word]);
        for (std::size_t mode = 0; mode < loud_count; ++mode) found |= loud[mode][word];
        found &= wanted;
        if (found) return (word + 1) * bits_of_word - static_cast<std::size_t>(std::countl_zero(found));
        if (word == 0) return 0;
        --word;
        wanted = ~Word{0};
    }
}

void ShapeBands::take_mode(std::size_t place, const CSimpleGUIShape& shape) {
    const Word bit = Word{1} << (place % bits_of_word);
    for (Places& of_mode : m_of_mode) of_mode[place / bits_of_word] &= ~bit;
    put(m_of_mode[slot_of(shape.m_texture_mode)].data(), place);
    m_read.writes = CSimpleGUIShape::s_noted_writes;
}
