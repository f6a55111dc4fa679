#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/UrlSession.h"

namespace stagehopper {

/// A server on the loopback interface, and what it received. It accepts a WebSocket on every path
/// and by itself sends only pongs on it.
class StandInServer {
public:
    virtual ~StandInServer() = default;

    /// Host and port, as in a URL.
    [[nodiscard]] virtual std::string authority() const = 0;
    /// The answer to a GET of this path; any other path gets a 404.
    virtual void answers(const std::string& path, platform::HttpResponse response) = 0;
    /// A GET of this path gets a 302 that leads to `address`.
    virtual void redirects(const std::string& path, const std::string& address) = 0;
    /// A GET of this path gets the head and the first bytes of a longer body; then the connection
    /// breaks.
    virtual void breaksOff(const std::string& path, platform::HttpResponse response) = 0;
    /// Requests for this path, WebSocket or not, are accepted and never answered.
    virtual void neverAnswers(const std::string& path) = 0;
    /// From now on pings get no pong.
    virtual void ignoresPings() = 0;

    // --- The last WebSocket connection ------------------------------------------------------

    virtual void sends(const platform::WebSocketMessage& message) = 0;
    virtual void closes(int code) = 0;
    /// Breaks the connection without a close frame.
    virtual void breaks() = 0;

    /// Path and query of each WebSocket connection so far.
    [[nodiscard]] virtual std::vector<std::string> socketTargets() const = 0;
    [[nodiscard]] virtual int pings() const = 0;
    /// The client's close code, after it has closed.
    [[nodiscard]] virtual std::optional<int> closeCode() const = 0;
};

/// A session under test and servers for it. One per test.
class ServerHarness {
public:
    virtual ~ServerHarness() = default;

    virtual platform::UrlSession& session() = 0;
    /// The harness owns it.
    virtual StandInServer& startServer() = 0;
    /// Host and port without a listener.
    virtual std::string refusingAuthority() = 0;
    /// Lets the port's time pass until `done` holds. False if the limit is reached first.
    virtual bool runUntil(const std::function<bool()>& done,
                          std::chrono::seconds limit = std::chrono::seconds{10}) = 0;
};

/// Each port's test program defines it.
std::unique_ptr<ServerHarness> makeServerHarness();

}  // namespace stagehopper
