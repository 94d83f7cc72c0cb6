// Writes the crowd as a project that the player opens: make_crowd SHAPES FILE.

#include <cstdio>
#include <cstdlib>
#include <exception>

#include "scene/show.h"

int main(int count, char** arguments) {
    const int shapes = count == 3 ? std::atoi(arguments[1]) : 0;
    if (shapes <= 0) {
        std::fputs("make_crowd SHAPES FILE\n", stderr);
        return 2;
    }
    try {
        bench::write_crowd({.shapes = shapes}, arguments[2]);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}
