#pragma once

#include <string>
#include <string_view>

// Text between memory and bytes, without the C locale: the host must read and write Chinese under LC_ALL=C too.

/// What is no character (a surrogate in 32-bit wchar_t, a number beyond U+10FFFF) becomes U+FFFD.
std::string to_utf8(std::wstring_view text);
/// Each broken sequence becomes one U+FFFD; reading goes on behind it.
std::wstring from_utf8(std::string_view bytes);
