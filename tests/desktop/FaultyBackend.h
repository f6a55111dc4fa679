#pragma once

#include <atomic>
#include <condition_variable>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "tests/drivers/desktop/WaitFor.h"
#include "tests/drivers/servers/LoopbackServer.h"

namespace stagehopper::desktop {

/// A backend on a port of the range in which the program looks, with one meeting. A test controls
/// its slide sockets, and gives it pages to serve. One thread, and threads of its own.
class FaultyBackend {
public:
    /// How the next slide sockets are handled.
    enum class Handshake { accepted, refused, neverAnswered };

    /// Listens at once; throws std::runtime_error if the port is taken.
    explicit FaultyBackend(int port);

    void setHandshake(Handshake handshake) { handshake_ = handshake; }
    /// Answers GET `path` with that page.
    void setPage(const std::string& path, const std::string& html);
    /// False: pings get no pong.
    void setAnswersPings(bool answers) { answersPings_ = answers; }

    /// Waits until the slide socket number `count` has been requested.
    [[nodiscard]] bool waitForSocket(std::size_t count, Limit limit = std::chrono::seconds(10));
    /// Path and query of each slide socket so far.
    [[nodiscard]] std::vector<std::string> targets() const;
    /// Method and target of each request so far.
    [[nodiscard]] std::vector<std::string> requests() const;
    /// Pings that the program sent on all sockets.
    [[nodiscard]] int pings() const { return pings_; }
    /// The code with which the program closed a socket last.
    [[nodiscard]] std::optional<int> closeCode() const;

    // On the newest socket:
    void sendText(const std::string& text);
    void sendWelcome() { sendText(R"({"type":"welcome"})"); }
    void sendStep(const std::string& direction, int seq);
    void closeConnection();

private:
    void serve(Peer& peer);
    [[nodiscard]] std::string answerTo(const std::string& target) const;
    void serveSocket(Peer& peer, const std::string& request);

    std::atomic<Handshake> handshake_{Handshake::accepted};
    std::atomic<bool> answersPings_{true};
    std::atomic<int> pings_{0};

    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<std::string> targets_;
    std::vector<std::string> requests_;
    /// By path.
    std::map<std::string, std::string> pages_;
    std::optional<int> closeCode_;
    /// The newest slide socket, or null.
    Peer* socket_ = nullptr;
    /// Last: its threads use all of the above.
    LoopbackServer server_;
};

}  // namespace stagehopper::desktop
