#pragma once

#include <iosfwd>
#include <memory>
#include <optional>

namespace player {

/// What was written behind the program's name.
class CommandLine {
public:
    CommandLine();
    ~CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    /// Once. Gives the exit code where there is nothing to run: `out` then has what was asked for, or `error` one line
    /// that says what is wrong.
    std::optional<int> parse(int argc, const char* const* argv, std::ostream& out, std::ostream& error);
    /// Carries out what was parsed and gives the exit code.
    int run();

private:
    struct Options;
    std::unique_ptr<Options> m_options;
};

}  // namespace player
