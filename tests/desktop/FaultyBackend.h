#pragma once

#include <atomic>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "tests/drivers/desktop/WaitFor.h"

namespace stagehopper::desktop {

/// A backend on a port of the range in which the program looks, with one meeting, that lets a test
/// control each slide socket byte by byte, so that it can break every rule. It also serves the
/// pages that a test gives it. One thread, and threads of its own.
class FaultyBackend {
public:
    /// How the next slide sockets are handled.
    enum class Handshake { accepted, refused, neverAnswered };

    /// Listens at once; throws DesktopError when the port is taken.
    explicit FaultyBackend(int port);
    ~FaultyBackend();
    FaultyBackend(const FaultyBackend&) = delete;
    FaultyBackend& operator=(const FaultyBackend&) = delete;

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
    void sendText(const std::string& text) { sendFrame(0x81, text); }
    void sendBinary(const std::string& bytes) { sendFrame(0x82, bytes); }
    void sendWelcome() { sendText(R"({"type":"welcome"})"); }
    void sendStep(const std::string& direction, int seq);
    /// The beginning of a frame that never ends, then the end of the connection.
    void breakMidFrame();
    void closeConnection();

private:
    void listen();
    void serve(int client);
    [[nodiscard]] std::string answerTo(const std::string& target) const;
    void serveSocket(int client, const std::string& key);
    void sendFrame(unsigned char firstByte, const std::string& payload);
    void sendRaw(const std::string& bytes);

    int listener_ = -1;
    std::atomic<bool> closing_{false};
    std::atomic<Handshake> handshake_{Handshake::accepted};
    std::atomic<bool> answersPings_{true};
    std::atomic<int> pings_{0};

    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<std::string> targets_;
    std::vector<std::string> requests_;
    /// By method and target.
    std::map<std::string, std::string> pages_;
    std::optional<int> closeCode_;
    /// The newest slide socket, or -1; and all open ones.
    int socket_ = -1;
    std::vector<int> open_;
    std::vector<std::thread> threads_;
    std::thread listening_;
};

}  // namespace stagehopper::desktop
