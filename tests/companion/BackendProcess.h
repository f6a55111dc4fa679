#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tests/drivers/TemporaryFolder.h"
#include "tests/drivers/desktop/WaitFor.h"

namespace stagehopper::companion {

/// The real backend as a child process with its own home and ports. The destructor ends it, and
/// fails the test if its exit status is not 0.
class BackendProcess {
public:
    struct Settings {
        /// The process for --ppid. If absent, this process.
        std::optional<pid_t> parent;
        std::uint16_t firstPort = unusedPort();
        std::uint16_t extraPorts = 40;
        /// An intermediate process starts it as its real parent. `id` and `kill` then mean that
        /// process.
        bool behindParent = false;
    };

    explicit BackendProcess(const Settings& settings);
    BackendProcess() : BackendProcess(Settings()) {}
    ~BackendProcess();
    BackendProcess(const BackendProcess&) = delete;
    BackendProcess& operator=(const BackendProcess&) = delete;

    /// The port on which it listens. 0 if it does not listen within some seconds.
    std::uint16_t port();
    std::string origin() { return "http://127.0.0.1:" + std::to_string(port()); }
    pid_t id() const { return id_; }

    void terminate() const;
    void kill();
    /// Null if the process still runs after the limit. -1 if a signal ended it.
    std::optional<int> exitStatus(std::chrono::milliseconds limit);

    std::string log() const;
    bool logs(const std::string& text, std::chrono::milliseconds limit) const;

    /// A port on which no process listens.
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
