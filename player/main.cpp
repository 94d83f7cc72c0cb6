#include <exception>
#include <iostream>
#include <new>

#include "player/command_line.h"
#include "player/commands.h"

int main(int argc, char** argv) {
    try {
        player::CommandLine line;
        const std::optional<int> ended = line.parse(argc, argv, std::cout, std::cerr);
        return ended ? *ended : line.run();
    } catch (const std::bad_alloc&) {
        return player::fail("out of memory");
    } catch (const std::exception& error) {
        return player::fail(error.what());
    }
}
