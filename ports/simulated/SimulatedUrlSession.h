#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Clock.h"
#include "platform/UrlSession.h"
#include "ports/simulated/Journal.h"
#include "ports/simulated/SimulatedDispatch.h"

namespace stagehopper::simulated {

/// The server's end of one WebSocket connection, and what the client did with it.
struct SocketConnection {
    std::string url;
    /// False once either side closed it or it failed.
    bool open = false;
    std::optional<int> closeCode;
    int pings = 0;

    /// What is on its way to the client, oldest first; and who waits for it.
    std::deque<platform::ReceiveResult> inbox;
    std::deque<std::function<void(platform::ReceiveResult)>> receivers;
    std::vector<std::function<void(std::optional<platform::UrlError>)>> pongHandlers;
};

/// A server on a port of the loopback interface.
struct Server {
    /// What it answers, by path; anything else is a 404.
    std::map<std::string, platform::HttpResponse> answers{{"/health", {200, "ok"}}};
    /// Takes that long to answer a request; absent: never answers.
    std::optional<platform::Duration> answersAfter = platform::Duration{0};
    /// Paths whose answers break off behind the head.
    std::vector<std::string> brokenPaths;
    /// Paths whose requests are never answered.
    std::vector<std::string> silentPaths;
    bool takesSockets = true;
    bool answersPings = true;
    /// Every socket ever opened here, oldest first.
    std::vector<std::shared_ptr<SocketConnection>> connections;
};

/// HTTP and WebSocket in memory: the loopback interface, with a server on some ports. Completions
/// come on the system's lane of the dispatch. Main thread and global work.
class SimulatedUrlSession final : public platform::UrlSession {
public:
    SimulatedUrlSession(Journal& journal, SimulatedDispatch& dispatch)
        : journal_(journal), dispatch_(dispatch) {}

    void startDataTask(const std::string& url,
                       std::function<void(platform::DataResult)> completion) override;
    std::shared_ptr<platform::WebSocketTask> makeWebSocketTask(const std::string& url) override;

    /// Puts a server on a port, or gives the one that is there.
    Server& serve(int port);
    /// The server and its connections are gone.
    void stopServing(int port);

    /// The server sends a text, or bytes.
    void sends(SocketConnection& connection, std::string text);
    void sendsBytes(SocketConnection& connection, std::string bytes);
    /// The connection breaks; whoever waits is told why.
    void breaks(SocketConnection& connection, const std::string& why);
    /// The last socket opened on that port; throws when there was none.
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
    SimulatedDispatch& dispatch_;
    std::map<int, Server> servers_;
    std::vector<std::string> requests_;
};

}  // namespace stagehopper::simulated
