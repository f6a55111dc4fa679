// For systems that cannot look up the user of a connection.
#include "companion/backend/system/LoopbackUser.h"

namespace stagehopper::companion {

std::optional<std::uint32_t> userOf(const LoopbackConnection& /*connection*/) {
    return std::nullopt;
}

}  // namespace stagehopper::companion
