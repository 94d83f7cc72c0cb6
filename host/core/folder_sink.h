#pragma once

#include <functional>
#include <string>

namespace host {

/// Gets the path of each folder that filefun::create_path is asked for, ahead of its making. May be empty.
void set_folder_sink(std::function<void(const std::wstring& path)> sink);

}  // namespace host
