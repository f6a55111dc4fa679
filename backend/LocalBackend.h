#pragma once

#include <cstdint>
#include <string>

namespace stagehopper {

/// The ports on which a backend may listen on the loopback interface, both included. The backend
/// that we start is told the same range.
inline constexpr std::int64_t firstBackendPort = 3000;
inline constexpr std::int64_t lastBackendPort = 3050;

/// "http://127.0.0.1:3000": an address, since a name could be made to mean another machine.
std::string backendBaseUrl(std::int64_t port);

/// Where a healthy backend answers with status 200.
std::string backendHealthUrl(std::int64_t port);

}  // namespace stagehopper
