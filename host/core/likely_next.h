#pragma once

#include <algorithm>
#include <array>

namespace host {

/// What stood behind something, the last times: most likely it does again. Null where there was nothing.
template <class Line>
class LikelyNext {
public:
    /// The first for which `fits` holds, or null.
    template <class Fits>
    Line* find(Fits fits) const {
        for (Line* line : m_lines) {
            if (!line) return nullptr;
            if (fits(*line)) return line;
        }
        return nullptr;
    }
    Line* first() const { return m_lines.front(); }
    /// One that find did not give.
    void add(Line& line) {
        std::copy_backward(m_lines.begin(), m_lines.end() - 1, m_lines.end());
        m_lines[0] = &line;
    }

private:
    std::array<Line*, 4> m_lines{};
};

}  // namespace host
