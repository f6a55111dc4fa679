#include "tests/macos/recording/system/Servers.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace stagehopper::recording {

namespace {

/// The part after "scheme://".
std::string afterScheme(const std::string& address) {
    const auto scheme = address.find("://");
    return scheme == std::string::npos ? std::string() : address.substr(scheme + 3);
}

}  // namespace

void Servers::stopServing(int port) {
    const auto gone = servers_.extract(port);
    if (gone.empty()) return;
    for (const auto& connection : gone.mapped().connections) connection->breaks(lost);
}

void Servers::forget() {
    for (const auto& [port, server] : servers_) {
        for (const auto& connection : server.connections) connection->forget();
    }
    servers_.clear();
}

SocketConnection& Servers::lastConnection(int port) const {
    const auto server = servers_.find(port);
    if (server == servers_.end() || server->second.connections.empty()) {
        throw std::logic_error("no socket was opened on port " + std::to_string(port));
    }
    return *server->second.connections.back();
}

std::size_t Servers::openSockets() const {
    std::ptrdiff_t count = 0;
    for (const auto& [port, server] : servers_) {
        count += std::ranges::count_if(server.connections,
                                       [](const auto& connection) { return connection->open(); });
    }
    return static_cast<std::size_t>(count);
}

Server* Servers::serverOf(const std::string& address) {
    const std::string rest = afterScheme(address);
    const std::string authority = rest.substr(0, rest.find_first_of("/?"));
    const auto colon = authority.find(':');
    const std::string host = authority.substr(0, colon);
    if (host != "127.0.0.1" && host != "localhost") return nullptr;
    const int port = colon == std::string::npos ? 80 : std::atoi(authority.c_str() + colon + 1);
    const auto found = servers_.find(port);
    return found == servers_.end() ? nullptr : &found->second;
}

std::string Servers::pathOf(const std::string& address) {
    const std::string rest = afterScheme(address);
    const auto slash = rest.find('/');
    if (slash == std::string::npos) return "/";
    return rest.substr(slash, rest.find('?', slash) - slash);
}

}  // namespace stagehopper::recording
