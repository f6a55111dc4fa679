#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <string>

#include "platform/ChildProcess.h"

namespace stagehopper::linux_port {

class HandlerGate;

/// Replaces a program that this system does not have: a text replaces its output. It counts as
/// exited, with status 0, from its launch. Any thread.
class StandInProcess final : public platform::ChildProcess {
public:
    /// `output` is called at launch.
    StandInProcess(std::function<std::string()> output, std::shared_ptr<HandlerGate> gate);

    platform::Outcome launch(platform::TerminationHandler onTermination) override;
    void terminate() override {}
    void waitUntilExit() override {}
    std::string readOutputToEnd() override;
    std::int32_t terminationStatus() override { return 0; }

private:
    const std::function<std::string()> output_;
    const std::shared_ptr<HandlerGate> gate_;
    std::mutex mutex_;
    bool launched_ = false;
    std::string unread_;
};

/// Replaces a program that must not run here: its launch is refused.
class RefusedProcess final : public platform::ChildProcess {
public:
    explicit RefusedProcess(std::string reason) : reason_(std::move(reason)) {}

    platform::Outcome launch(platform::TerminationHandler /*onTermination*/) override {
        return platform::Outcome::refused(reason_);
    }
    void terminate() override {}
    void waitUntilExit() override {}
    std::string readOutputToEnd() override { return {}; }
    std::int32_t terminationStatus() override { return 0; }

private:
    const std::string reason_;
};

}  // namespace stagehopper::linux_port
