#include "host/core/log.h"

#include <cstdio>
#include <new>
#include <utility>

#include "engine/services.h"
#include "host/core/text_conversion.h"

namespace {

std::function<void(int, std::wstring_view)> log_sink;

}  // namespace

// The argument list is no plain pointer on the systems of this host, so `format` always is the finished text.
void zov_simple_log(ELogType kind, const wchar_t* format, char*) {
    const std::wstring_view line = format ? format : L"";
    if (log_sink) return log_sink(kind, line);
    try {
        std::fprintf(stderr, "%s\n", to_utf8(line).c_str());
    } catch (const std::bad_alloc&) {
        for (const wchar_t c : line) std::fputc(c < 128 ? static_cast<int>(c) : '?', stderr);
        std::fputc('\n', stderr);
    }
}

void host::set_log_sink(std::function<void(int kind, std::wstring_view line)> sink) { log_sink = std::move(sink); }
