#include "host/core/known_lines.h"

#include <algorithm>

namespace host {

void KnownLines::learn(std::string_view text, KnownLine::Kind kind, std::string_view key) {
    // A file may be all different lines.
    constexpr std::size_t most_lines = 1000;
    constexpr std::size_t longest_line = 200;
    KnownLine* line = nullptr;
    if (const auto known = m_by_text.find(text); known != m_by_text.end()) {
        line = known->second;
    } else if (m_lines.size() < most_lines && text.size() <= longest_line) {
        const auto breaks = static_cast<int>(std::count(text.begin(), text.end(), '\n'));
        line = &m_lines.emplace_back();
        line->text = text;
        line->kind = kind;
        line->key = key;
        line->line_breaks = breaks;
        if (kind == KnownLine::EMPTY_NODE) line->keep(text, {});
        m_by_text.emplace(line->text, line);
    }
    if (!line) return;
    m_last->next.add(*line);
    m_last = line;
}

}  // namespace host
