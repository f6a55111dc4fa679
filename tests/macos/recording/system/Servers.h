#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/macos/recording/system/SocketConnection.h"

namespace stagehopper::recording {

struct ServerAnswer {
    int status = 200;
    std::string body{};
    /// False: the reply is not HTTP.
    bool http = true;
    /// The target of a redirect; the system follows it.
    std::string location{};
    /// Only the head comes; then the connection is lost.
    bool breaksOff = false;
    /// The request is accepted and never answered.
    bool never = false;
};

/// A server on a port of the loopback interface.
struct Server {
    /// By path; anything else is a 404.
    std::map<std::string, ServerAnswer> answers{{"/health", {200, "ok"}}};
    /// Seconds until a request is answered; absent: never.
    std::optional<double> answersAfter = 0;
    bool takesSockets = true;
    /// How often the system calls the pong handler for one ping; zero when no pong ever comes.
    int pongs = 1;
    /// Every socket that was opened here, oldest first.
    std::vector<std::shared_ptr<SocketConnection>> connections;
};

/// The loopback interface: which ports have a server, and what was asked. Main thread only.
class Servers {
public:
    /// The system's error for a port without a server, and for a connection whose server is gone.
    static constexpr const char* refused = "Could not connect to the server.";
    static constexpr const char* lost = "The network connection was lost.";
    static constexpr const char* timedOut = "The request timed out.";
    /// Seconds until the system gives up a request.
    static constexpr double requestLimit = 60;

    /// Adds a server on a port, or returns the existing one.
    Server& serve(int port) { return servers_[port]; }
    /// Removes the server and its connections.
    void stopServing(int port);
    /// The last socket opened on that port; throws if there was none.
    [[nodiscard]] SocketConnection& lastConnection(int port) const;
    /// At the end of a test.
    void forget();
    /// On all ports together.
    [[nodiscard]] std::size_t openSockets() const;

    /// The server at an address; null if there is none.
    [[nodiscard]] Server* serverOf(const std::string& address);
    /// The path of an address, without its query.
    [[nodiscard]] static std::string pathOf(const std::string& address);

    /// Addresses of all requests that were resumed, oldest first.
    std::vector<std::string> requests;

private:
    std::map<int, Server> servers_;
};

}  // namespace stagehopper::recording
