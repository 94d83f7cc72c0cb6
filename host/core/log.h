#pragma once

#include <functional>
#include <string_view>

namespace host {

/// Gets each line of zov_simple_log with its kind. An empty function sends the lines to the standard error again.
/// The way to it asks for no memory, for that may be what a line tells of.
void set_log_sink(std::function<void(int kind, std::wstring_view line)> sink);

}  // namespace host
