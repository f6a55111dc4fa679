#include "companion/backend/server/Server.h"

#include <unistd.h>

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/signal_set.hpp>
#include <boost/asio/steady_timer.hpp>
#include <chrono>
#include <csignal>

#include "companion/backend/server/HttpSession.h"
#include "companion/backend/server/Service.h"
#include "companion/backend/system/LocalAddresses.h"
#include "companion/backend/system/LoopbackUser.h"
#include "companion/backend/system/ParentProcess.h"

namespace stagehopper::companion {

namespace asio = boost::asio;
using asio::ip::tcp;
using boost::system::error_code;
using namespace std::chrono_literals;

namespace {

constexpr auto parentPollInterval = 250ms;
// All connections must be closed within the second that the program has for its end.
constexpr auto shutdownTimeout = 600ms;
constexpr auto shutdownPollInterval = 20ms;
constexpr auto acceptRetryDelay = 100ms;
constexpr int sendBufferBytes = 16 * 1024;

std::int64_t millisecondsSince1970() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

Peer peerOf(const tcp::endpoint& from, const tcp::endpoint& to) {
    Peer peer{.address = from.address().to_string(), .isLoopback = from.address().is_loopback()};
    if (!peer.isLoopback) return peer;
    const auto user = userOf({.fromAddress = from.address().to_v4().to_uint(),
                              .fromPort = from.port(),
                              .toAddress = to.address().to_v4().to_uint(),
                              .toPort = to.port()});
    peer.isOtherUser = user && *user != ::geteuid();
    return peer;
}

/// False if the port is not available.
bool listenAt(tcp::acceptor& acceptor, const asio::ip::address_v4& address, std::uint16_t port) {
    error_code error;
    const tcp::endpoint endpoint(address, port);
    const auto fails = [&] { return static_cast<bool>(error); };
    acceptor.open(endpoint.protocol(), error);
    if (!fails()) acceptor.set_option(tcp::acceptor::reuse_address(true), error);
    if (!fails()) acceptor.bind(endpoint, error);
    if (!fails()) acceptor.listen(tcp::acceptor::max_listen_connections, error);
    if (!fails()) return true;
    error_code ignored;
    acceptor.close(ignored);
    return false;
}

class Server {
public:
    Server(const Options& options, const Pages& pages, BackendLog& log)
        : parent_(options.parent), log_(log) {
        const std::uint16_t port = listen(options);
        service_.emplace(log, pages,
                         Api::Environment{millisecondsSince1970,
                                          [] { return likelyFirst(localAddresses()); }, port});
        if (port != 0) {
            log.line("listening",
                     "port=" + std::to_string(port) + " pid=" + std::to_string(::getpid()));
        }
    }

    ~Server() {
        // Meetings own connections, which must not outlive the loop.
        service_->meetings = {};
    }

    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    int run() {
        if (!acceptor_.is_open()) {
            log_.line("no_free_port", {});
            return 1;
        }
        signals_.async_wait([this](error_code error, int) {
            if (!error) shutDown("told to");
        });
        watchParent();
        accept();
        loop_.run();
        log_.line("ended", {});
        return 0;
    }

private:
    /// Returns the port, or 0 if all are taken.
    std::uint16_t listen(const Options& options) {
        for (std::uint32_t port = options.firstPort; port <= options.lastPort; ++port) {
            const auto number = static_cast<std::uint16_t>(port);
            // Some systems let a program bind all addresses while another one has bound 127.0.0.1.
            // Requests to that address would then reach the other program.
            tcp::acceptor trial(loop_);
            if (!listenAt(trial, asio::ip::address_v4::loopback(), number)) continue;
            error_code ignored;
            trial.close(ignored);
            if (listenAt(acceptor_, asio::ip::address_v4::any(), number)) return number;
        }
        return 0;
    }

    void accept() {
        acceptor_.async_accept([this](error_code error, tcp::socket socket) {
            if (shuttingDown_) return;
            if (error) {
                // Most likely out of file descriptors: an immediate retry would only use up the
                // CPU.
                acceptTimer_.expires_after(acceptRetryDelay);
                acceptTimer_.async_wait([this](error_code canceled) {
                    if (!canceled) accept();
                });
                return;
            }
            startSession(std::move(socket));
            accept();
        });
    }

    void startSession(tcp::socket socket) {
        error_code error;
        const auto peer = socket.remote_endpoint(error);
        // The client has already disconnected.
        if (error) return;
        socket.set_option(tcp::no_delay(true), error);
        // A small buffer: messages wait in our queue instead, where newer pointers replace old
        // ones.
        socket.set_option(tcp::socket::send_buffer_size(sendBufferBytes), error);
        const Peer client = peerOf(peer, socket.local_endpoint(error));
        if (auto permit = service_->connectionLimits.take(client)) {
            std::make_shared<HttpSession>(std::move(socket), *service_, std::move(*permit))
                ->serve();
        } else if (auto refusal = service_->refusalLimits.take(client)) {
            std::make_shared<HttpSession>(std::move(socket), *service_, std::move(*refusal))
                ->refuse();
        }
    }

    void watchParent() {
        parentTimer_.expires_after(parentPollInterval);
        parentTimer_.async_wait([this](error_code error) {
            if (error) return;
            parent_.isGone() ? shutDown("parent gone") : watchParent();
        });
    }

    void shutDown(std::string_view reason) {
        if (shuttingDown_) return;
        shuttingDown_ = true;
        log_.line("ending", reason);
        error_code ignored;
        acceptor_.close(ignored);
        for (const auto& held : service_->roomConnections) {
            if (const auto connection = held.lock()) connection->close({1001, "shutting down"});
        }
        stopWhenEmpty(std::chrono::steady_clock::now() + shutdownTimeout);
    }

    void stopWhenEmpty(TimePoint latest) {
        std::erase_if(service_->roomConnections, [](const auto& one) { return one.expired(); });
        if (service_->roomConnections.empty() || std::chrono::steady_clock::now() >= latest) {
            return loop_.stop();
        }
        parentTimer_.expires_after(shutdownPollInterval);
        parentTimer_.async_wait([this, latest](error_code) { stopWhenEmpty(latest); });
    }

    ParentProcess parent_;
    BackendLog& log_;
    // Declared before the loop: connections that the loop destroys at its end still use it.
    std::optional<Service> service_;
    asio::io_context loop_{1};
    tcp::acceptor acceptor_{loop_};
    asio::signal_set signals_{loop_, SIGTERM, SIGINT};
    asio::steady_timer acceptTimer_{loop_};
    asio::steady_timer parentTimer_{loop_};
    bool shuttingDown_ = false;
};

}  // namespace

int serve(const Options& options, const Pages& pages, BackendLog& log) {
    return Server(options, pages, log).run();
}

}  // namespace stagehopper::companion
