#pragma once

#include <openssl/ssl.h>

#include <atomic>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

namespace stagehopper {

/// A WebSocket frame, as it is on the wire but for the mask.
struct Frame {
    enum Opcode { continuation = 0, text = 1, binary = 2, close = 8, ping = 9, pong = 10 };
    int opcode = text;
    std::string payload;
    bool final = true;
};

/// A close frame's payload.
std::string closePayload(int code);
/// The code in a close frame's payload; 1005 without one.
int closeCodeIn(std::string_view payload);

/// An open socket that is closed with its owner.
class OwnedSocket {
public:
    explicit OwnedSocket(int number) : number_(number) {}
    ~OwnedSocket() { close(); }
    OwnedSocket(const OwnedSocket&) = delete;
    OwnedSocket& operator=(const OwnedSocket&) = delete;
    [[nodiscard]] int number() const { return number_; }
    void close();

private:
    int number_;
};

/// The server's end of one connection. Every call blocks until it is done or the connection is
/// gone. Sending and reading may be done by two threads.
class Peer {
public:
    explicit Peer(int socket) : socket_(socket) {}

    /// Encrypts what follows; false when the client does not go along.
    bool encrypt(SSL_CTX& context);
    /// The server name that the client sent in the TLS handshake; empty without one.
    [[nodiscard]] std::string serverName() const;
    /// Says in the encrypted connection that nothing more comes.
    void sayGoodbye();
    /// Whether the client has said so.
    [[nodiscard]] bool heardGoodbye() const;

    /// The request up to its empty line; nothing when the client has gone.
    std::optional<std::string> readRequest();
    /// Answers a request for a WebSocket.
    void acceptWebSocket(const std::string& request);
    /// The next frame; nothing when the client has gone.
    std::optional<Frame> readFrame();

    void send(std::string_view bytes);
    void send(const Frame& frame);
    /// Ends our half; the client reads an end of file.
    void finish();
    /// Ends it with a reset instead, as the system of a program does that has crashed.
    void reset();
    /// Reads and forgets until the client has gone.
    void readUntilGone();
    /// Lets blocked calls return, from another thread.
    void interrupt();
    /// The script is over.
    void close();

private:
    struct FreeSsl {
        void operator()(SSL* ssl) const { SSL_free(ssl); }
    };

    bool fill();
    std::optional<std::string> take(std::size_t count);

    /// Closing and interrupting must not meet: the number may belong to another file by then.
    std::mutex mutex_;
    OwnedSocket socket_;
    std::unique_ptr<SSL, FreeSsl> ssl_;
    std::string buffer_;
};

/// The target in the first line of a request.
std::string targetOf(const std::string& request);

/// Runs a script for each connection, each on a thread of its own; the connection ends with it.
class LoopbackServer {
public:
    using Script = std::function<void(Peer&)>;
    /// On a free port unless `port` is given; throws std::runtime_error if it is taken.
    explicit LoopbackServer(Script script, int port = 0);
    /// Interrupts the scripts and waits for their end.
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    [[nodiscard]] int port() const { return port_; }
    /// Host and port, as in an address.
    [[nodiscard]] std::string authority() const;

private:
    struct Visit {
        explicit Visit(int socket) : peer(socket) {}
        Peer peer;
        std::thread thread;
    };

    void acceptAll();

    const Script script_;
    OwnedSocket listener_;
    int port_ = 0;
    /// The accepting thread's, until that has ended.
    std::list<Visit> visits_;
    std::atomic<bool> ending_ = false;
    std::thread acceptor_;
};

/// A port of the loopback interface without a listener, reserved during its lifetime.
class UnusedPort {
public:
    UnusedPort();
    [[nodiscard]] std::string authority() const;

private:
    OwnedSocket socket_;
    int port_ = 0;
};

/// A port that neither accepts nor refuses a connection, because its queue is full.
class CrowdedPort {
public:
    CrowdedPort();
    [[nodiscard]] std::string authority() const;

private:
    OwnedSocket listener_;
    int port_ = 0;
    std::list<OwnedSocket> waiting_;
};

}  // namespace stagehopper
