#pragma once

// What a disk may hold after the power has gone in the middle of some calls. It promises only what the calls for
// flushing promise: what a file was given since its last flush may be there, in part, as zeros or not at all, and of
// the names given since the folder's last flush any may be there and any not, whatever their order.

#include <map>
#include <random>
#include <string>
#include <vector>

#include "harden/disk.h"

namespace harden {

using Folder = std::map<std::string, std::string>;  // the content of each file, by its path

/// One of the states in which `before` may be found when the power goes behind the first `made` of the calls.
Folder after_power_cut(const Folder& before, const std::vector<DiskCall>& calls, std::size_t made,
                       std::mt19937& chance);

}  // namespace harden
