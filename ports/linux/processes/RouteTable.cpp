#include "ports/linux/processes/RouteTable.h"

#include <arpa/inet.h>
#include <net/route.h>
#include <netinet/in.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <sstream>

namespace stagehopper::linux_port {

namespace {

constexpr unsigned wanted = RTF_UP | RTF_GATEWAY;

/// The kernel writes an address as the number that its four bytes are in memory.
std::string dotted(std::uint32_t addressInMemory) {
    const in_addr address{addressInMemory};
    std::array<char, INET_ADDRSTRLEN> text{};
    ::inet_ntop(AF_INET, &address, text.data(), text.size());
    return text.data();
}

std::optional<DefaultRoute> defaultRoute(const std::string& line) {
    std::istringstream fields(line);
    DefaultRoute route;
    std::uint32_t destination = 0;
    std::uint32_t gateway = 0;
    std::uint32_t mask = 0;
    unsigned flags = 0;
    unsigned long references = 0;
    unsigned long uses = 0;
    fields >> route.interface >> std::hex >> destination >> gateway >> flags >> std::dec >>
        references >> uses >> route.metric >> std::hex >> mask;
    const bool refusesPackets = (flags & RTF_REJECT) != 0;
    if (!fields || destination != 0 || mask != 0 || refusesPackets || (flags & wanted) != wanted) {
        return std::nullopt;
    }
    route.gateway = dotted(gateway);
    return route;
}

}  // namespace

std::vector<DefaultRoute> defaultRoutes(std::string_view kernelTable) {
    std::vector<DefaultRoute> routes;
    std::istringstream lines{std::string(kernelTable)};
    for (std::string line; std::getline(lines, line);) {
        if (auto route = defaultRoute(line)) routes.push_back(std::move(*route));
    }
    std::ranges::stable_sort(routes, {}, &DefaultRoute::metric);
    return routes;
}

std::string routeListing(const std::vector<DefaultRoute>& routes) {
    std::string listing;
    for (const auto& route : routes) {
        listing += "default " + route.gateway + " UG " + route.interface + '\n';
    }
    return listing;
}

}  // namespace stagehopper::linux_port
