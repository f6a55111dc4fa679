#include "companion/backend/system/LocalAddresses.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <string_view>

namespace stagehopper::companion {

namespace {

bool isVirtual(const LocalAddress& local) {
    static constexpr std::array prefixes{"docker", "br-", "veth", "virbr",    "vmnet", "vboxnet",
                                         "bridge", "cni", "lxc",  "podman",   "tun",   "tap",
                                         "utun",   "wg",  "zt",   "tailscale"};
    return local.pointToPoint || std::ranges::any_of(prefixes, [&](std::string_view prefix) {
               return local.interfaceName.starts_with(prefix);
           });
}

/// A lower rank is likelier.
int rank(const LocalAddress& local) {
    in_addr parsed{};
    if (::inet_pton(AF_INET, local.address.c_str(), &parsed) != 1) return 9;
    const std::uint32_t bits = ntohl(parsed.s_addr);
    const int kind = bits >> 16 == 0xC0A8   ? 0  // 192.168/16: homes and small offices
                     : bits >> 24 == 10     ? 1  // 10/8
                     : bits >> 20 == 0xAC1  ? 2  // 172.16/12: often containers
                     : bits >> 16 == 0xA9FE ? 4  // 169.254/16: no DHCP server
                                            : 3;
    return kind + (isVirtual(local) ? 5 : 0);
}

}  // namespace

std::vector<LocalAddress> localAddresses() {
    ifaddrs* raw = nullptr;
    if (::getifaddrs(&raw) != 0) return {};
    const std::unique_ptr<ifaddrs, decltype(&::freeifaddrs)> list(raw, &::freeifaddrs);
    std::vector<LocalAddress> found;
    for (const ifaddrs* entry = list.get(); entry != nullptr; entry = entry->ifa_next) {
        if (entry->ifa_addr == nullptr || entry->ifa_addr->sa_family != AF_INET) continue;
        if ((entry->ifa_flags & IFF_UP) == 0 || (entry->ifa_flags & IFF_LOOPBACK) != 0) continue;
        sockaddr_in address{};
        std::memcpy(&address, entry->ifa_addr, sizeof(address));
        std::array<char, INET_ADDRSTRLEN> text{};
        if (::inet_ntop(AF_INET, &address.sin_addr, text.data(), text.size()) == nullptr) continue;
        const bool pointToPoint = (entry->ifa_flags & IFF_POINTOPOINT) != 0;
        found.push_back({entry->ifa_name, text.data(), pointToPoint});
    }
    return found;
}

std::vector<std::string> likelyFirst(std::vector<LocalAddress> addresses) {
    std::ranges::stable_sort(addresses, {}, rank);
    std::vector<std::string> ordered;
    for (const LocalAddress& local : addresses) {
        if (std::ranges::find(ordered, local.address) == ordered.end()) {
            ordered.push_back(local.address);
        }
    }
    return ordered;
}

}  // namespace stagehopper::companion
