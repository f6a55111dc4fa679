#pragma once

#include <vector>

namespace stagehopper::benchmarks {

/// The smallest of `times` that at least this share of them does not exceed. `times` is not empty;
/// it is sorted.
double percentile(std::vector<double>& times, double share);

}  // namespace stagehopper::benchmarks
