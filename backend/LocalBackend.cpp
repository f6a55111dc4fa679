#include "backend/LocalBackend.h"

namespace stagehopper {

std::string backendBaseUrl(std::int64_t port) {
    return "http://127.0.0.1:" + std::to_string(port);
}

std::string backendHealthUrl(std::int64_t port) {
    return backendBaseUrl(port) + "/health";
}

}  // namespace stagehopper
