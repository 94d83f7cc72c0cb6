#include "host/core/log.h"

#include <cstdio>
#include <utility>

#include "engine/services.h"
#include "host/core/text_conversion.h"

namespace {

std::function<void(int, const std::wstring&)> log_sink;

}  // namespace

// The argument list is no plain pointer on the systems of this host, so `format` always is the finished text.
void zov_simple_log(ELogType kind, const wchar_t* format, char*) {
    const std::wstring line = format ? format : L"";
    if (log_sink) {
        log_sink(kind, line);
    } else {
        std::fprintf(stderr, "%s\n", to_utf8(line).c_str());
    }
}

void host::set_log_sink(std::function<void(int kind, const std::wstring& line)> sink) { log_sink = std::move(sink); }
