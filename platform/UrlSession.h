#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>

namespace stagehopper::platform {

/// The reason why a connection failed, in words for a person.
struct UrlError {
    std::string localizedDescription;
};

/// The status of a request that succeeded.
inline constexpr int statusOk = 200;

struct HttpResponse {
    int statusCode = 0;
    /// Empty if it was incomplete.
    std::string body;
};

/// The result of a request. Both are present if the response's body was incomplete.
struct DataResult {
    /// Present with any status.
    std::optional<HttpResponse> response;
    /// Absent if the response was complete.
    std::optional<UrlError> error;
};

struct WebSocketMessage {
    enum class Kind { text, binary };
    Kind kind = Kind::text;
    /// UTF-8 for a text; otherwise unchanged.
    std::string bytes;
};

using ReceiveResult = std::variant<WebSocketMessage, UrlError>;

/// One WebSocket connection. Any thread. Nothing happens before `resume`. Dropping it closes the
/// connection; pending completions get an error.
///
/// Each completion is called once, on the session's own queue, one at a time, and never inside the
/// call that passed it.
class WebSocketTask {
public:
    virtual ~WebSocketTask() = default;
    /// Starts connecting. The result is delivered to the pending or next `receive`.
    virtual void resume() = 0;
    /// Delivers the next message, or an error if there will be none. Messages are kept until they
    /// are received.
    virtual void receive(std::function<void(ReceiveResult)> completion) = 0;
    /// Sends a ping. The handler is called without an error when the pong arrives, or with an error
    /// if the connection fails or is closed first.
    virtual void sendPing(std::function<void(std::optional<UrlError>)> pongHandler) = 0;
    /// Closes the connection with this code and no reason; pending completions get an error.
    virtual void cancel(int closeCode) = 0;
};

/// HTTP and WebSocket connections. Any thread. Completions run on the session's own queue, so that
/// code that blocks the main thread can wait for them.
class UrlSession {
public:
    virtual ~UrlSession() = default;
    /// GETs `url` ("http://…", "https://…") and calls the completion once. An invalid URL completes
    /// with an error. Redirects are not followed: they complete with a status of 3xx. A request
    /// without an answer fails after the system's time limit.
    virtual void startDataTask(const std::string& url,
                               std::function<void(DataResult)> completion) = 0;
    /// Never null. If `url` is not "ws://…" or "wss://…", the connection fails.
    virtual std::shared_ptr<WebSocketTask> makeWebSocketTask(const std::string& url) = 0;
};

}  // namespace stagehopper::platform
