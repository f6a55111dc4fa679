#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>

#include "tests/drivers/servers/LoopbackServer.h"

namespace stagehopper::benchmarks {

/// A backend with nothing but the slide socket: sends steps to its client, each with its own
/// sequence tag.
class StepServer {
public:
    [[nodiscard]] std::string port() const { return std::to_string(server_.port()); }
    /// Sends the next step, after the client has connected.
    void sendStep();

private:
    void serve(Peer& peer);

    std::mutex mutex_;
    std::condition_variable connected_;
    Peer* client_ = nullptr;
    int seq_ = 0;
    /// Last: its threads use all of the above.
    LoopbackServer server_{[this](Peer& peer) { serve(peer); }};
};

/// The bare floor: a client that does nothing but wait for a frame. One thread.
class BareClient {
public:
    explicit BareClient(const std::string& port);
    ~BareClient();
    BareClient(const BareClient&) = delete;
    BareClient& operator=(const BareClient&) = delete;

    /// Blocks until a frame has arrived.
    void readFrame();

private:
    class Socket;
    std::unique_ptr<Socket> socket_;
};

}  // namespace stagehopper::benchmarks
