#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace stagehopper::linux_port {

/// A default route through a gateway with an address.
struct DefaultRoute {
    std::string gateway;
    std::string interface;
    unsigned long metric = 0;

    friend bool operator==(const DefaultRoute&, const DefaultRoute&) = default;
};

/// The default routes in the kernel's own table (the text of /proc/net/route), the preferred one
/// first. Invalid lines are skipped. Pure.
std::vector<DefaultRoute> defaultRoutes(std::string_view kernelTable);

/// One line a route: `default GATEWAY FLAGS INTERFACE`.
std::string routeListing(const std::vector<DefaultRoute>& routes);

}  // namespace stagehopper::linux_port
