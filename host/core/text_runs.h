#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace host {

/// A stretch of one line of a text, short enough for a picture of its own.
struct TextRun {
    std::size_t start;
    std::size_t length;
    int line;
};

struct TextRuns {
    std::vector<TextRun> runs;
    /// At least 1; empty lines count and have no run.
    int line_count;
};

/// Longer texts are cut here: more than any view shows, and what a script makes by mistake must not stop the program.
inline constexpr std::size_t longest_text = 1u << 17;

/// Lines end with "\n" or "\r\n". No run is longer than `longest_run`, which is above 0; where it can, a cut follows a
/// blank.
TextRuns cut_into_runs(std::wstring_view text, std::size_t longest_run);

}  // namespace host
