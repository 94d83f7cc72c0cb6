#pragma once

#include <functional>
#include <string>

namespace host {

/// Gets each line of zov_simple_log with its kind. An empty function sends the lines to the standard error again.
void set_log_sink(std::function<void(int kind, const std::wstring& line)> sink);

}  // namespace host
