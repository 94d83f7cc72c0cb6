#pragma once

#include <tsl/robin_set.h>

#include "engine/guid.h"
#include "host/core/chance_hash.h"

namespace host {

struct IdHash {
    std::size_t operator()(const CGuid& id) const { return chance_hash(id.bytes(), sizeof(GUID)); }
};

using IdSet = tsl::robin_set<CGuid, IdHash>;

}  // namespace host
