#pragma once

#include <memory>
#include <string>

namespace stagehopper::benchmarks {

/// A backend with nothing but the slide socket: takes one client at a time and sends it steps, each
/// with its own sequence tag. One thread beside its own.
class StepServer {
public:
    StepServer();
    ~StepServer();
    StepServer(const StepServer&) = delete;
    StepServer& operator=(const StepServer&) = delete;

    [[nodiscard]] std::string port() const;
    /// Sends the next step to the client, which may still be on its way.
    void sendStep();

private:
    class Connection;
    std::unique_ptr<Connection> connection_;
};

/// The bare floor: a client that does nothing but wait for a frame. One thread.
class BareClient {
public:
    explicit BareClient(const std::string& port);
    ~BareClient();
    BareClient(const BareClient&) = delete;
    BareClient& operator=(const BareClient&) = delete;

    /// Blocks until a frame has come.
    void readFrame();

private:
    class Socket;
    std::unique_ptr<Socket> socket_;
};

}  // namespace stagehopper::benchmarks
