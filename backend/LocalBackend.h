#pragma once

#include <cstdint>
#include <string>

namespace stagehopper {

/// The first and the last port on which a backend may listen on the loopback interface. We pass the
/// same range to the backend that we start.
inline constexpr std::int64_t firstBackendPort = 3000;
inline constexpr std::int64_t lastBackendPort = 3050;

/// "http://127.0.0.1:3000". An address, because a name can be redirected to another machine.
std::string backendBaseUrl(std::int64_t port);

/// The URL at which a healthy backend answers with status 200.
std::string backendHealthUrl(std::int64_t port);

}  // namespace stagehopper
