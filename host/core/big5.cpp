#include "host/core/big5.h"

#include <iconv.h>

#include <cerrno>

#include "host/core/text_conversion.h"

namespace host {

namespace {

const iconv_t not_there = reinterpret_cast<iconv_t>(-1);

/// The system's converter to UTF-8. Where code page 950 has no name of its own its nearest relative serves.
class Converter {
public:
    Converter() {
        for (const char* name : {"CP950", "BIG5"}) {
            if (m_converter == not_there) m_converter = iconv_open("UTF-8", name);
        }
    }
    ~Converter() {
        if (m_converter != not_there) iconv_close(m_converter);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    std::string convert(const std::string& bytes) {
        if (m_converter == not_there) return std::string(bytes.size(), '?');
        iconv(m_converter, nullptr, nullptr, nullptr, nullptr);
        std::string text;
        // Only moved on: the converter writes nothing there.
        char* from = const_cast<char*>(bytes.data());
        std::size_t left = bytes.size();
        while (left > 0) {
            char buffer[256];
            char* to = buffer;
            std::size_t space = sizeof buffer;
            const bool done = iconv(m_converter, &from, &left, &to, &space) != static_cast<std::size_t>(-1);
            const bool broken = !done && errno != E2BIG;
            text.append(buffer, to);
            if (!broken) continue;
            text += '?';
            ++from;
            --left;
        }
        return text;
    }

private:
    iconv_t m_converter = not_there;
};

}  // namespace

std::wstring wide_from_big5(std::string_view bytes) { return from_utf8(Converter().convert(std::string(bytes))); }

}  // namespace host
