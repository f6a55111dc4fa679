#include "benchmarks/Percentiles.h"

#include <algorithm>
#include <cmath>

namespace stagehopper::benchmarks {

double percentile(std::vector<double>& times, double share) {
    std::ranges::sort(times);
    const auto rank = std::ceil(share * static_cast<double>(times.size()));
    return times[static_cast<std::size_t>(std::max(rank, 1.0)) - 1];
}

}  // namespace stagehopper::benchmarks
