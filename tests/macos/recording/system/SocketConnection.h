#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace stagehopper::recording {

/// The result of a receive: a message, or the reason for the failure.
struct Incoming {
    enum class Kind { text, binary, failure };
    Kind kind = Kind::text;
    std::string bytes;
};

/// One WebSocket connection: the server's actions and the client's requests. The client's handlers
/// run on the queue "session". Main thread only.
class SocketConnection {
public:
    using Receiver = std::function<void(const Incoming&)>;
    /// Called without a text for a pong, else with the error.
    using PongHandler = std::function<void(const std::optional<std::string>&)>;

    explicit SocketConnection(std::string address) : address_(std::move(address)) {}

    // --- the server and the network -----------------------------------------------------------
    void sends(std::string text);
    void sendsBytes(std::string bytes);
    /// Breaks the connection; pending and later receives fail with the reason.
    void breaks(const std::string& why);
    /// How often the pong handler of a failed ping is called after a break.
    int failedPingCalls = 1;
    /// At the end of a test: drops all handlers.
    void forget();

    // --- what a test looks at -----------------------------------------------------------------
    [[nodiscard]] const std::string& address() const { return address_; }
    [[nodiscard]] bool open() const { return open_; }
    [[nodiscard]] bool ended() const { return failure_.has_value(); }
    [[nodiscard]] int pings() const { return pings_; }
    /// Absent until the client closes it.
    [[nodiscard]] std::optional<int> closeCode() const { return closeCode_; }
    /// Whether the client waits for a message.
    [[nodiscard]] bool awaited() const { return !receivers_.empty(); }

    // --- the client ---------------------------------------------------------------------------
    /// Kept as long as the connection lasts.
    void keepClient(std::shared_ptr<void> client) { client_ = std::move(client); }
    /// Accepts the connection; each pong handler is called `pongs` times.
    void connected(int pongs);
    /// Passes the next message, or the failure, to `receiver` once.
    void receive(Receiver receiver);
    void ping(PongHandler handler);
    void close(long code);

private:
    void arrives(Incoming incoming);
    void answerPing(PongHandler handler);

    std::string address_;
    bool open_ = false;
    std::shared_ptr<void> client_;
    int pings_ = 0;
    int pongs_ = 0;
    std::optional<int> closeCode_;
    std::optional<std::string> failure_;
    std::deque<Incoming> inbox_;
    std::deque<Receiver> receivers_;
    std::vector<PongHandler> waitingForPong_;
};

}  // namespace stagehopper::recording
