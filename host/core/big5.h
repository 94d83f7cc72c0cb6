#pragma once

#include <string>
#include <string_view>

namespace host {

/// Text in code page 950. Bytes that are no character there become '?'; reading goes on behind them.
std::wstring wide_from_big5(std::string_view bytes);

}  // namespace host
