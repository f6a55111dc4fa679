#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tests/companion/TemporaryFolder.h"

namespace stagehopper::companion {

void shortPause();

/// Waits until `condition` holds; false when the time is over.
template <typename Condition>
bool becomesTrue(std::chrono::milliseconds limit, Condition condition) {
    const auto latest = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= latest) return false;
        shortPause();
    }
    return true;
}

/// The real backend as a child process with a home and ports of its own. With its owner it is told
/// to end, and a test fails whose backend then does not end well.
class BackendProcess {
public:
    struct How {
        /// Whose end it watches; absent: this process.
        std::optional<pid_t> parent;
        std::uint16_t firstPort = unusedPort();
        std::uint16_t extraPorts = 40;
        /// A process in between starts it, as its real parent; `id` and `kill` are that one's.
        bool behindParent = false;
    };

    explicit BackendProcess(const How& how);
    BackendProcess() : BackendProcess(How()) {}
    ~BackendProcess();
    BackendProcess(const BackendProcess&) = delete;
    BackendProcess& operator=(const BackendProcess&) = delete;

    /// Where it listens; 0 when it does not within some seconds.
    std::uint16_t port();
    std::string origin() { return "http://127.0.0.1:" + std::to_string(port()); }
    pid_t id() const { return id_; }

    void terminate() const;
    void kill();
    /// Its exit status, or none when it still runs after the limit; -1 when a signal ended it.
    std::optional<int> exitStatus(std::chrono::milliseconds limit);

    std::string log() const;
    bool logs(const std::string& text, std::chrono::milliseconds limit) const;

    /// One that nobody listens on right now.
    static std::uint16_t unusedPort();

private:
    TemporaryFolder home_;
    pid_t id_ = 0;
    std::uint16_t port_ = 0;
    std::optional<int> status_;
};

/// A process that does nothing until it is killed.
class FakeParent {
public:
    FakeParent();
    ~FakeParent();
    FakeParent(const FakeParent&) = delete;
    FakeParent& operator=(const FakeParent&) = delete;

    pid_t id() const { return id_; }
    void kill();

private:
    pid_t id_ = 0;
};

}  // namespace stagehopper::companion
