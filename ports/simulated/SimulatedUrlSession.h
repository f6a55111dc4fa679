#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Clock.h"
#include "platform/Dispatch.h"
#include "platform/UrlSession.h"
#include "ports/simulated/Journal.h"

namespace stagehopper::simulated {

/// The server's end of one WebSocket connection, and the client's actions on it.
struct SocketConnection {
    std::string url;
    /// False after either side has closed it or it has failed.
    bool open = false;
    std::optional<int> closeCode;
    int pings = 0;

    /// Messages on their way to the client and the receives that wait for them, oldest first.
    std::deque<platform::ReceiveResult> inbox;
    std::deque<std::function<void(platform::ReceiveResult)>> receivers;
    std::vector<std::function<void(std::optional<platform::UrlError>)>> pongHandlers;
};

/// A server on a port of the loopback interface.
struct Server {
    /// Its answers by path; any other path gets a 404.
    std::map<std::string, platform::HttpResponse> answers{{"/health", {200, "ok"}}};
    /// The time until a request is answered; absent: never.
    std::optional<platform::Duration> answersAfter = platform::Duration{0};
    /// Paths whose answers break off after the head.
    std::vector<std::string> brokenPaths;
    /// Paths whose requests are never answered.
    std::vector<std::string> silentPaths;
    bool takesSockets = true;
    bool answersPings = true;
    /// All sockets ever opened here, oldest first.
    std::vector<std::shared_ptr<SocketConnection>> connections;
};

/// HTTP and WebSocket in memory: the loopback interface with servers on some ports. Completions run
/// on a thread of the system. Main thread and global work.
class SimulatedUrlSession final : public platform::UrlSession {
public:
    /// Runs a task on a thread of the system, after a delay.
    using AsyncSystem = std::function<void(platform::Duration, platform::Task)>;

    SimulatedUrlSession(Journal& journal, AsyncSystem asyncSystem)
        : journal_(journal), asyncSystem_(std::move(asyncSystem)) {}

    void startDataTask(const std::string& url,
                       std::function<void(platform::DataResult)> completion) override;
    std::shared_ptr<platform::WebSocketTask> makeWebSocketTask(const std::string& url) override;

    /// Starts a server on a port or returns the existing one.
    Server& serve(int port);
    /// Removes the server and its connections.
    void stopServing(int port);

    /// The server sends a text, or bytes.
    void sends(SocketConnection& connection, std::string text);
    void sendsBytes(SocketConnection& connection, std::string bytes);
    /// Breaks the connection; pending receives and pings get the reason.
    void breaks(SocketConnection& connection, const std::string& why);
    /// The last socket opened on this port; throws if there was none.
    [[nodiscard]] SocketConnection& lastConnection(int port);

    /// How many connections are open, on all ports together.
    [[nodiscard]] std::size_t openSockets() const;

    /// URLs of all requests so far, oldest first.
    [[nodiscard]] const std::vector<std::string>& requests() const { return requests_; }
    void forgetRequests() { requests_.clear(); }

private:
    friend class SimulatedWebSocketTask;

    Server* serverOf(const std::string& url);
    void deliver(SocketConnection& connection, platform::ReceiveResult result);

    Journal& journal_;
    AsyncSystem asyncSystem_;
    std::map<int, Server> servers_;
    std::vector<std::string> requests_;
};

}  // namespace stagehopper::simulated
