#pragma once

// What each of these programs prints: rows of a table, for people and for tools/harden.

#include <cstdio>
#include <string>

namespace harden {

/// A row of the table. Whoever calls it ends with the sum of what it gives: 0 where the goal is met, else 1.
inline int report(const std::string& row, const std::string& figure, const std::string& goal, bool holds) {
    std::printf("%s\t%s\t%s\t%s\n", row.c_str(), figure.c_str(), goal.c_str(), holds ? "holds" : "DOES NOT HOLD");
    std::fflush(stdout);
    return holds ? 0 : 1;
}

}  // namespace harden
