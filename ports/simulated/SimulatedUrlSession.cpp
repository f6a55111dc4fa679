#include "ports/simulated/SimulatedUrlSession.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "text/Ascii.h"
#include "text/Url.h"

namespace stagehopper::simulated {

namespace {

/// The system's time limit for a request without an answer.
constexpr platform::Duration requestLimit{60};
constexpr const char* refused = "Could not connect to the server.";
constexpr const char* timedOut = "The request timed out.";
constexpr const char* canceled = "cancelled";
constexpr const char* lost = "The network connection was lost.";

struct Address {
    int port = 0;
    std::string path;
};

/// The port in "scheme://127.0.0.1:PORT/path?query". Other hosts have no servers.
Address addressOf(const std::string& text) {
    const auto url = parseUrl(text);
    if (!url || !url->authority || url->authority->host != "127.0.0.1") return {};
    const auto port = parsePort(url->authority->port.value_or(""));
    return {port.value_or(0), std::string(url->path)};
}

bool isSocketAddress(const std::string& text) {
    const auto url = parseUrl(text);
    const auto scheme = asciiLowered(url && url->scheme ? *url->scheme : "");
    return scheme == "ws" || scheme == "wss";
}

}  // namespace

/// The client's end. It shares the connection with the server, so that either may go first.
class SimulatedWebSocketTask final : public platform::WebSocketTask {
public:
    SimulatedWebSocketTask(SimulatedUrlSession& session, const std::string& url)
        : session_(session), connection_(std::make_shared<SocketConnection>()) {
        connection_->url = url;
    }
    ~SimulatedWebSocketTask() override { close(goingAway); }
    SimulatedWebSocketTask(const SimulatedWebSocketTask&) = delete;
    SimulatedWebSocketTask& operator=(const SimulatedWebSocketTask&) = delete;

    void resume() override {
        if (closed_ || std::exchange(resumed_, true)) return;
        session_.journal_.add("socket opened: " + connection_->url);
        auto* server = session_.serverOf(connection_->url);
        if (server == nullptr || !server->takesSockets || !isSocketAddress(connection_->url)) {
            session_.breaks(*connection_, refused);
            return;
        }
        connection_->open = true;
        server->connections.push_back(connection_);
    }

    void receive(std::function<void(platform::ReceiveResult)> completion) override {
        if (!connection_->inbox.empty()) {
            auto result = std::move(connection_->inbox.front());
            // Later receives also get the reason of the end.
            if (std::holds_alternative<platform::UrlError>(result)) {
                connection_->inbox.front() = result;
            } else {
                connection_->inbox.pop_front();
            }
            session_.asyncSystem_({}, [completion = std::move(completion),
                                       result = std::move(result)] { completion(result); });
            return;
        }
        connection_->receivers.push_back(std::move(completion));
    }

    void sendPing(std::function<void(std::optional<platform::UrlError>)> pongHandler) override {
        session_.journal_.add("socket pinged");
        ++connection_->pings;
        auto* server = session_.serverOf(connection_->url);
        if (resumed_ && !connection_->open) {
            session_.asyncSystem_({}, [pongHandler = std::move(pongHandler)] {
                pongHandler(platform::UrlError{lost});
            });
        } else if (connection_->open && server != nullptr && server->answersPings) {
            session_.asyncSystem_(
                {}, [pongHandler = std::move(pongHandler)] { pongHandler(std::nullopt); });
        } else {
            connection_->pongHandlers.push_back(std::move(pongHandler));
        }
    }

    void cancel(int closeCode) override { close(closeCode); }

private:
    static constexpr int goingAway = 1001;

    void close(int closeCode) {
        if (std::exchange(closed_, true)) return;
        if (connection_->open) {
            connection_->closeCode = closeCode;
            session_.journal_.add("socket closed with " + std::to_string(closeCode));
        }
        session_.breaks(*connection_, canceled);
    }

    SimulatedUrlSession& session_;
    std::shared_ptr<SocketConnection> connection_;
    bool resumed_ = false;
    bool closed_ = false;
};

Server* SimulatedUrlSession::serverOf(const std::string& url) {
    const auto server = servers_.find(addressOf(url).port);
    return server == servers_.end() ? nullptr : &server->second;
}

void SimulatedUrlSession::startDataTask(const std::string& url,
                                        std::function<void(platform::DataResult)> completion) {
    requests_.push_back(url);
    const auto* server = serverOf(url);
    platform::Duration delay{0};
    platform::DataResult result{.response = {}, .error = platform::UrlError{refused}};
    const auto path = addressOf(url).path;
    const auto isAmong = [&path](const auto& paths) {
        return std::ranges::find(paths, path) != paths.end();
    };
    const bool silent =
        server != nullptr && (!server->answersAfter || *server->answersAfter > requestLimit ||
                              isAmong(server->silentPaths));
    if (silent) {
        delay = requestLimit;
        result.error = platform::UrlError{timedOut};
    } else if (server != nullptr) {
        delay = *server->answersAfter;
        const auto answer = server->answers.find(path);
        result.response =
            answer == server->answers.end() ? platform::HttpResponse{404, ""} : answer->second;
        result.error.reset();
        if (isAmong(server->brokenPaths)) {
            result.response->body.clear();
            result.error = platform::UrlError{lost};
        }
    }
    asyncSystem_(delay, [completion = std::move(completion), result = std::move(result)] {
        completion(result);
    });
}

std::shared_ptr<platform::WebSocketTask> SimulatedUrlSession::makeWebSocketTask(
    const std::string& url) {
    return std::make_shared<SimulatedWebSocketTask>(*this, url);
}

Server& SimulatedUrlSession::serve(int port) {
    return servers_[port];
}

void SimulatedUrlSession::stopServing(int port) {
    const auto server = servers_.extract(port);
    if (server.empty()) return;
    for (const auto& connection : server.mapped().connections) breaks(*connection, lost);
}

void SimulatedUrlSession::sends(SocketConnection& connection, std::string text) {
    using Kind = platform::WebSocketMessage::Kind;
    deliver(connection, platform::WebSocketMessage{Kind::text, std::move(text)});
}

void SimulatedUrlSession::sendsBytes(SocketConnection& connection, std::string bytes) {
    using Kind = platform::WebSocketMessage::Kind;
    deliver(connection, platform::WebSocketMessage{Kind::binary, std::move(bytes)});
}

void SimulatedUrlSession::deliver(SocketConnection& connection, platform::ReceiveResult result) {
    if (!connection.open) return;
    if (connection.receivers.empty()) {
        connection.inbox.push_back(std::move(result));
        return;
    }
    auto receiver = std::move(connection.receivers.front());
    connection.receivers.pop_front();
    asyncSystem_(
        {}, [receiver = std::move(receiver), result = std::move(result)] { receiver(result); });
}

void SimulatedUrlSession::breaks(SocketConnection& connection, const std::string& why) {
    connection.open = false;
    const platform::UrlError error{why};
    connection.inbox.push_back(error);
    for (auto& receiver : std::exchange(connection.receivers, {})) {
        asyncSystem_({}, [receiver = std::move(receiver), error] { receiver(error); });
    }
    for (auto& handler : std::exchange(connection.pongHandlers, {})) {
        asyncSystem_({}, [handler = std::move(handler), error] { handler(error); });
    }
}

std::size_t SimulatedUrlSession::openSockets() const {
    std::ptrdiff_t count = 0;
    for (const auto& [port, server] : servers_) {
        count += std::ranges::count_if(server.connections,
                                       [](const auto& connection) { return connection->open; });
    }
    return static_cast<std::size_t>(count);
}

SocketConnection& SimulatedUrlSession::lastConnection(int port) {
    const auto server = servers_.find(port);
    if (server == servers_.end() || server->second.connections.empty()) {
        throw std::logic_error("no socket was opened on port " + std::to_string(port));
    }
    return *server->second.connections.back();
}

}  // namespace stagehopper::simulated
