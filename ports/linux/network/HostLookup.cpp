#include "ports/linux/network/HostLookup.h"

#include <netdb.h>

#include <cstring>
#include <memory>

namespace stagehopper::linux_port {
namespace {

struct FreeAddresses {
    void operator()(addrinfo* addresses) const { ::freeaddrinfo(addresses); }
};
using Addresses = std::unique_ptr<addrinfo, FreeAddresses>;

int ask(const std::string& host, const std::string& port, int flags, Addresses& found) {
    addrinfo wanted{};
    wanted.ai_family = AF_UNSPEC;
    wanted.ai_socktype = SOCK_STREAM;
    wanted.ai_flags = AI_NUMERICSERV | flags;
    addrinfo* result = nullptr;
    const int status = ::getaddrinfo(host.c_str(), port.c_str(), &wanted, &result);
    if (status == 0) found.reset(result);
    return status;
}

}  // namespace

bool isNumericHost(const std::string& host) {
    Addresses found;
    return ask(host, "0", AI_NUMERICHOST, found) == 0;
}

HostLookup lookUpHost(const std::string& host, const std::string& port) {
    HostLookup lookup;
    Addresses found;
    if (const int status = ask(host, port, 0, found); status != 0) {
        lookup.problem = "The host " + host + " was not found: " + ::gai_strerror(status);
        return lookup;
    }
    for (const addrinfo* each = found.get(); each != nullptr; each = each->ai_next) {
        SocketAddress address;
        std::memcpy(&address.storage, each->ai_addr, each->ai_addrlen);
        address.size = each->ai_addrlen;
        lookup.addresses.push_back(address);
    }
    return lookup;
}

}  // namespace stagehopper::linux_port
