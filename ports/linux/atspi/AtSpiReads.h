#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "ports/linux/atspi/AtSpiRole.h"
#include "ports/linux/atspi/BusCall.h"

namespace stagehopper::linux_port {

using References = std::vector<ObjectReference>;

/// The calls of each attribute, for rounds that ask for several attributes at once.
namespace at_spi_call {
BusCall children(const ObjectReference& object);
BusCall name(const ObjectReference& object);
BusCall role(const ObjectReference& object);
BusCall states(const ObjectReference& object);
}  // namespace at_spi_call

/// Reads the replies; absent, or the invalid role, for a failed call.
namespace at_spi_reply {
std::optional<References> children(const CallResult& result);
std::optional<std::string> name(const CallResult& result);
AtSpiRole role(const CallResult& result);
std::optional<std::uint64_t> states(const CallResult& result);
}  // namespace at_spi_reply

}  // namespace stagehopper::linux_port
