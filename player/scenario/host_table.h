#pragma once

#include "player/scenario/scenario.h"

namespace scenario {

/// Gives the state its globals `host`, `expect` and `ARGS`. The scenario must outlive the state's use.
void bind_host(Scenario& scenario, const std::vector<std::string>& arguments);

}  // namespace scenario
