// Any bytes whatever as a font file. Beyond not falling over, what the readers promise must hold.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "fonts/sfnt_names.h"

namespace {

void must(bool holds, const char* promise) {
    if (holds) return;
    std::fprintf(stderr, "broken promise: %s\n", promise);
    std::abort();
}

// Each look has bytes of its own, so that the sanitizers see who still reads those of an earlier one.
class Counted final : public ByteSource {
public:
    explicit Counted(std::span<const unsigned char> bytes) : m_bytes(bytes) {}
    std::uint64_t handed_out = 0;

private:
    std::span<const unsigned char> fetch(std::uint64_t position, std::size_t count) override {
        const std::size_t begin = static_cast<std::size_t>(std::min<std::uint64_t>(position, m_bytes.size()));
        const auto there = m_bytes.subspan(begin, std::min(count, m_bytes.size() - begin));
        handed_out += there.size();
        m_last = std::make_unique<unsigned char[]>(there.size());
        std::copy(there.begin(), there.end(), m_last.get());
        return {m_last.get(), there.size()};
    }
    std::span<const unsigned char> m_bytes;
    std::unique_ptr<unsigned char[]> m_last;
};

class Checked final : public NameSink {
public:
    void take(const StoredName& name) override {
        must(!name.bytes.empty(), "a name is never empty");
        if (name.text == StoredName::WIDE) {
            check(units_of(name.bytes));
        } else {
            check(std::string(name.bytes.begin(), name.bytes.end()));
        }
    }

private:
    template <class Text>
    void check(const Text& text) {
        must(text.find(typename Text::value_type()) == Text::npos, "texts end at a zero");
        must(text.size() <= longest_text, "texts are cut");
    }
};

void read(void (*names_of)(ByteSource&, NameSink&), std::span<const unsigned char> bytes) {
    Counted file(bytes);
    Checked names;
    names_of(file, names);
    must(file.handed_out <= most_bytes, "work is limited");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    read(&names_of_font, {data, size});
    read(&names_of_collection, {data, size});
    return 0;
}
