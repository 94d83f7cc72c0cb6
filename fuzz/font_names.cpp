// Any bytes whatever as a font file. Beyond not falling over, what the readers promise must hold.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "fonts/sfnt_names.h"

namespace {

void must(bool holds, const char* promise) {
    if (holds) return;
    std::fprintf(stderr, "broken promise: %s\n", promise);
    std::abort();
}

void read(std::vector<StoredName> (*names_of)(const ByteReader&), const unsigned char* data, std::size_t size) {
    std::uint64_t handed_out = 0;
    const ByteReader reader = [&](std::uint64_t position, unsigned char* target, std::size_t count) {
        const std::size_t there = position < size ? std::min<std::size_t>(count, size - position) : 0;
        if (there > 0) std::memcpy(target, data + position, there);
        handed_out += there;
        return there;
    };
    for (const StoredName& name : names_of(reader)) {
        must(name.narrow.empty() != name.wide.empty(), "a name is narrow or wide, and never empty");
        must(name.narrow.size() <= longest_text && name.wide.size() <= longest_text, "texts are cut");
        must(name.narrow.find('\0') == std::string::npos && name.wide.find(u'\0') == std::u16string::npos,
             "texts end at a zero");
    }
    must(handed_out <= most_bytes, "work is limited");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    read(&names_of_font, data, size);
    read(&names_of_collection, data, size);
    return 0;
}
