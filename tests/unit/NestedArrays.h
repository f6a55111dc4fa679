#pragma once

#include <cstddef>
#include <string>

namespace stagehopper {

/// Nested JSON arrays with this many levels.
inline std::string nestedArrays(std::size_t levels) {
    return std::string(levels, '[') + std::string(levels, ']');
}

}  // namespace stagehopper
