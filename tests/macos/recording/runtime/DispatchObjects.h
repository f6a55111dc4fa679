#pragma once

#include <string>
#include <vector>

/// What the port has made of Grand Central Dispatch. Whoever has its turn.
namespace stagehopper::recording::dispatch {

/// One line for each queue and semaphore that was not released yet.
[[nodiscard]] std::vector<std::string> held();
void clear();

}  // namespace stagehopper::recording::dispatch
