#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>

namespace stagehopper::platform {

/// Words for a person: why a connection failed.
struct UrlError {
    std::string localizedDescription;
};

/// The status of a request that succeeded.
inline constexpr int statusOk = 200;

struct HttpResponse {
    int statusCode = 0;
    /// Empty when it did not come whole.
    std::string body;
};

/// What came of a request. Both are there when the head of a response came and its body broke off.
struct DataResult {
    /// Whatever its status.
    std::optional<HttpResponse> response;
    /// Absent when the response came whole.
    std::optional<UrlError> error;
};

struct WebSocketMessage {
    enum class Kind { text, binary };
    Kind kind = Kind::text;
    /// UTF-8 when it is a text; else as it came.
    std::string bytes;
};

using ReceiveResult = std::variant<WebSocketMessage, UrlError>;

/// One WebSocket connection. Any thread. Nothing happens before `resume`. Dropping it closes the
/// connection; completions that are still due get an error.
///
/// Completions are called once, on the session's own queue, one at a time, never from inside the
/// call that they belong to.
class WebSocketTask {
public:
    virtual ~WebSocketTask() = default;
    /// Connects; what comes of it, a pending or the next receive tells.
    virtual void resume() = 0;
    /// The next message, or why there will be none. Messages that come while nobody asks wait.
    virtual void receive(std::function<void(ReceiveResult)> completion) = 0;
    /// Sends a ping. The handler is called when its pong has come, without an error, or when the
    /// connection has failed or been closed first.
    virtual void sendPing(std::function<void(std::optional<UrlError>)> pongHandler) = 0;
    /// Closes the connection with this code and no reason; pending completions get an error.
    virtual void cancel(int closeCode) = 0;
};

/// HTTP and WebSocket connections. Any thread. Completions run on a queue of the session's own, so
/// that whoever blocks the main thread can wait for them.
class UrlSession {
public:
    virtual ~UrlSession() = default;
    /// GETs `url` ("http://…", "https://…"); the completion is called once. A URL that is none is
    /// an error. A redirect is a response with a status of 3xx, wherever it leads; a request that
    /// gets no answer at all fails after the system's own time limit.
    virtual void startDataTask(const std::string& url,
                               std::function<void(DataResult)> completion) = 0;
    /// Never null. A `url` that is no "ws://…" or "wss://…" fails as a connection does.
    virtual std::shared_ptr<WebSocketTask> makeWebSocketTask(const std::string& url) = 0;
};

}  // namespace stagehopper::platform
