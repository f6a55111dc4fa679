#pragma once

#include <string>
#include <vector>

/// The port's objects of Grand Central Dispatch. Only the running work may call this.
namespace stagehopper::recording::dispatch {

/// One line for each unreleased queue and semaphore.
[[nodiscard]] std::vector<std::string> held();
void clear();

}  // namespace stagehopper::recording::dispatch
