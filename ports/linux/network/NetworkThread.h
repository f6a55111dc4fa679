#pragma once

#include <atomic>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ssl/context.hpp>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <thread>

#include "ports/linux/network/HostLookup.h"

namespace stagehopper::linux_port {

/// A connection that the thread keeps alive.
class Connection {
public:
    virtual ~Connection() = default;
    /// The thread is about to end: sends a closing message, if that needs no waiting.
    virtual void leave() = 0;
};

/// The thread that does all network work and runs all completions, and what lives on it. Jobs, and
/// whatever they own, die on it or with it.
///
/// Any thread, unless a function says otherwise.
class NetworkThread : public std::enable_shared_from_this<NetworkThread> {
public:
    using Job = std::function<void()>;

    /// Starts the thread, so that no later job can fail because a thread cannot be started.
    NetworkThread();
    /// `end` must have been called.
    ~NetworkThread();
    NetworkThread(const NetworkThread&) = delete;
    NetworkThread& operator=(const NetworkThread&) = delete;

    /// Runs the job there after those posted before; drops it when the thread has ended.
    void post(Job job);
    /// Like `post`, but a job that has not started when `end` is called never does.
    void postCompletion(Job job);
    /// Ends the thread and drops everything that is under way. Not from that thread.
    void end();

    // --- On the thread only -----------------------------------------------------------------

    boost::asio::io_context& context() { return *context_; }
    /// For all encrypted connections. Made at first use: it reads the certificates to trust.
    boost::asio::ssl::context& tlsContext();
    void keep(std::shared_ptr<Connection> connection);
    void release(const std::shared_ptr<Connection>& connection);
    /// Looks up a name, or reads a number, without blocking the thread: a name server may take
    /// long, and its client cannot be interrupted.
    void lookUp(const std::string& host, const std::string& port,
                std::function<void(HostLookup)> done);

private:
    void run() noexcept;
    void answer(std::uint64_t id, HostLookup found);

    std::unique_ptr<boost::asio::io_context> context_;
    std::optional<boost::asio::ssl::context> tlsContext_;
    std::set<std::shared_ptr<Connection>> kept_;
    std::map<std::uint64_t, std::function<void(HostLookup)>> lookups_;
    std::uint64_t lastLookup_ = 0;

    std::atomic<bool> ending_ = false;
    std::mutex mutex_;
    /// Guarded by the mutex.
    bool ended_ = false;
    /// Last: it uses all of the above.
    std::thread thread_;
};

}  // namespace stagehopper::linux_port
