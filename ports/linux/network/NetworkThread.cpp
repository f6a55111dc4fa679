#include "ports/linux/network/NetworkThread.h"

#include <pthread.h>

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/post.hpp>
#include <csignal>
#include <system_error>
#include <utility>

#include "ports/linux/network/TlsContext.h"

namespace stagehopper::linux_port {
namespace {

/// Signals are for the main thread; a thread started inside this scope gets none.
class SignalsBlocked {
public:
    SignalsBlocked() {
        sigset_t all;
        ::sigfillset(&all);
        ::pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    ~SignalsBlocked() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

private:
    sigset_t before_{};
};

}  // namespace

// One thread runs it: the hint saves needless locks.
NetworkThread::NetworkThread() : context_(std::make_unique<boost::asio::io_context>(1)) {
    const SignalsBlocked blocked;
    thread_ = std::thread([this] { run(); });
}

NetworkThread::~NetworkThread() = default;

void NetworkThread::post(Job job) {
    const std::scoped_lock lock(mutex_);
    if (ended_) return;
    boost::asio::post(*context_, std::move(job));
}

void NetworkThread::postCompletion(Job job) {
    post([this, job = std::move(job)] {
        if (!ending_) job();
    });
}

// noexcept: an exception that leaves a completion ends the program with its message.
void NetworkThread::run() noexcept {
    const auto stayBusy = boost::asio::make_work_guard(*context_);
    context_->run();
}

void NetworkThread::end() {
    ending_ = true;
    std::unique_lock lock(mutex_);
    if (std::exchange(ended_, true)) return;
    // Behind the jobs that are queued: a connection that has just been closed still sends its
    // closing message.
    boost::asio::post(*context_, [this] {
        for (const auto& connection : kept_) connection->leave();
        context_->stop();
    });
    lock.unlock();
    thread_.join();
    // Sockets and timers go before their context does.
    kept_.clear();
    lookups_.clear();
    context_.reset();
}

boost::asio::ssl::context& NetworkThread::tlsContext() {
    if (!tlsContext_) tlsContext_.emplace(makeTlsContext());
    return *tlsContext_;
}

void NetworkThread::keep(std::shared_ptr<Connection> connection) {
    kept_.insert(std::move(connection));
}

void NetworkThread::release(const std::shared_ptr<Connection>& connection) {
    kept_.erase(connection);
}

void NetworkThread::lookUp(const std::string& host, const std::string& port,
                           std::function<void(HostLookup)> done) {
    const auto id = ++lastLookup_;
    lookups_.emplace(id, std::move(done));
    if (isNumericHost(host)) {
        post([this, id, found = lookUpHost(host, port)] { answer(id, found); });
        return;
    }
    // An abandoned lookup keeps running: it holds only a number and owns nothing of ours.
    auto ask = [weak = weak_from_this(), id, host, port] {
        auto found = lookUpHost(host, port);
        if (const auto self = weak.lock()) {
            self->post([raw = self.get(), id, found] { raw->answer(id, found); });
        }
    };
    try {
        const SignalsBlocked blocked;
        std::thread(std::move(ask)).detach();
    } catch (const std::system_error& noThread) {
        post([this, id, problem = std::string(noThread.what())] { answer(id, {{}, problem}); });
    }
}

void NetworkThread::answer(std::uint64_t id, HostLookup found) {
    auto waiting = lookups_.extract(id);
    if (!waiting.empty()) waiting.mapped()(std::move(found));
}

}  // namespace stagehopper::linux_port
