#include "tests/companion/BackendProcess.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace stagehopper::companion {
namespace {

using namespace std::chrono_literals;

/// Ends after a minute if no process is left to send a signal.
[[noreturn]] void waitForSignal() {
    ::alarm(60);
    ::pause();
    ::_exit(0);
}

void killAndReap(pid_t id) {
    ::kill(id, SIGKILL);
    ::waitpid(id, nullptr, 0);
}

bool canBind(std::uint16_t port) {
    const int handle = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    const bool bound =
        ::bind(handle, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
    ::close(handle);
    return bound;
}

}  // namespace

std::uint16_t BackendProcess::unusedPort() {
    // Below the ephemeral ports, and different for tests that run in parallel.
    static std::uint16_t next = static_cast<std::uint16_t>(20000 + ::getpid() % 250 * 48);
    do {
        ++next;
    } while (!canBind(next));
    return next;
}

BackendProcess::BackendProcess(const Settings& settings) {
    pid_t watched = settings.parent.value_or(::getpid());
    const std::string first = std::to_string(settings.firstPort);
    const std::string extra = std::to_string(settings.extraPorts);
    id_ = ::fork();
    if (id_ < 0) throw std::runtime_error("fork failed");
    if (id_ > 0) return;
    if (settings.behindParent) {
        watched = ::getpid();
        if (::fork() > 0) waitForSignal();
    }
    const std::string parent = "--ppid=" + std::to_string(watched);
    ::setenv("PORT", first.c_str(), 1);
    ::setenv("PORT_EXTRA", extra.c_str(), 1);
    ::setenv("XDG_STATE_HOME", home_.path().c_str(), 1);
    ::execl(STAGEHOPPER_BACKEND, STAGEHOPPER_BACKEND, parent.c_str(), nullptr);
    ::_exit(127);
}

BackendProcess::~BackendProcess() {
    if (status_) return;
    terminate();
    EXPECT_EQ(exitStatus(10s), 0) << log();
    if (!status_) killAndReap(id_);
}

std::uint16_t BackendProcess::port() {
    const std::string mark = "listening port=";
    if (port_ == 0 && logs(mark, 10s)) {
        const std::string text = log();
        port_ = static_cast<std::uint16_t>(std::stoi(text.substr(text.find(mark) + mark.size())));
    }
    return port_;
}

void BackendProcess::terminate() const {
    ::kill(id_, SIGTERM);
}

void BackendProcess::kill() {
    killAndReap(id_);
    status_ = -1;
}

std::optional<int> BackendProcess::exitStatus(std::chrono::milliseconds limit) {
    const auto hasEnded = [this] {
        int raw = 0;
        if (!status_ && ::waitpid(id_, &raw, WNOHANG) == id_) {
            status_ = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
        }
        return status_.has_value();
    };
    static_cast<void>(desktop::waitFor(hasEnded, limit));
    return status_;
}

std::string BackendProcess::log() const {
    std::ifstream file(home_.path() + "/stagehopper/backend.log");
    return {std::istreambuf_iterator<char>(file), {}};
}

bool BackendProcess::logs(const std::string& text, std::chrono::milliseconds limit) const {
    return desktop::waitFor([&] { return log().find(text) != std::string::npos; }, limit);
}

FakeParent::FakeParent() : id_(::fork()) {
    if (id_ < 0) throw std::runtime_error("fork failed");
    if (id_ == 0) waitForSignal();
}

FakeParent::~FakeParent() {
    kill();
}

void FakeParent::kill() {
    if (id_ != 0) killAndReap(id_);
    id_ = 0;
}

}  // namespace stagehopper::companion
