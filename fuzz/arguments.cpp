// Any words behind the program's name: understood, or answered with one line that says what is wrong.

#include <sstream>
#include <string>
#include <vector>

#include "fuzz/stage.h"
#include "player/command_line.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    // A line break ends a word.
    std::vector<std::string> words{"sgui", ""};
    for (std::size_t at = 0; at < size && data[at] != 0; ++at) {
        if (data[at] == '\n') {
            words.emplace_back();
        } else {
            words.back().push_back(static_cast<char>(data[at]));
        }
    }
    std::vector<const char*> arguments;
    for (const std::string& word : words) arguments.push_back(word.c_str());
    arguments.push_back(nullptr);

    player::CommandLine line;
    std::ostringstream out, error;
    const std::optional<int> ended = line.parse(static_cast<int>(words.size()), arguments.data(), out, error);
    if (!ended) {
        fuzz::must(out.str().empty() && error.str().empty(), "what can be run says nothing yet");
    } else if (*ended == 0) {
        fuzz::must(!out.str().empty() && error.str().empty(), "a question is answered");
    } else {
        fuzz::must(*ended == 2 && error.str().starts_with("sgui: "), "what is wrong is said");
        fuzz::must(error.str().ends_with("(see \"sgui --help\")\n"), "with a way on");
    }
    return 0;
}
