#include "module/boundary.h"

#include <cwchar>
#include <new>

#include "engine/engine_core.h"

namespace {

const wchar_t* reason() noexcept {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return L": out of memory";
    } catch (...) {
        return L": given up";
    }
}

}  // namespace

void keep_inside(const wchar_t* operation) noexcept {
    wchar_t line[100] = {};
    std::wcsncat(line, operation, 80);
    std::wcscat(line, reason());
    try {
        zov_simple_log(LOG_FONT, line, nullptr);
    } catch (...) {
        // There is no one else to tell.
        return;
    }
}
