#include "host/core/former_lines.h"

namespace host {
namespace {

std::string name_of(std::uint8_t kind, std::size_t depth, std::string_view key) {
    std::string name = std::to_string(kind);
    name += ' ';
    name += std::to_string(depth);
    name += ' ';
    return name.append(key);
}

}  // namespace

void FormerLines::follow(FormerLine& line) {
    m_last->next.add(line);
    m_last = &line;
}

FormerLine* FormerLines::find_elsewhere(std::uint8_t kind, std::size_t depth, std::string_view key) {
    const auto known = m_by_name.find(name_of(kind, depth, key));
    if (known == m_by_name.end()) return nullptr;
    follow(*known->second);
    return known->second;
}

FormerLine* FormerLines::add(std::uint8_t kind, std::size_t depth, std::string_view key, std::string_view head) {
    // A project may be all different lines.
    constexpr std::size_t most_lines = 1000;
    if (m_lines.size() == most_lines || head.size() > LineText().size()) return nullptr;
    FormerLine& line = m_lines.emplace_back();
    line.kind = kind;
    line.depth = depth;
    line.key = key;
    line.head = head.size();
    std::copy(head.begin(), head.end(), line.text.begin());
    m_by_name.emplace(name_of(kind, depth, key), &line);
    follow(line);
    return &line;
}

}  // namespace host
