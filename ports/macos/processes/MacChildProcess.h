#pragma once

#include <atomic>
#include <memory>

#include "platform/ChildProcess.h"
#include "ports/macos/cocoa/foundation/NSFileHandle.h"
#include "ports/macos/cocoa/foundation/NSTask.h"

namespace stagehopper::macos_port {

/// An NSTask. Its exit is reported by its termination handler. If we die, it lives on: NSTask has
/// no way to tie a process to its parent. Any thread. Before a successful launch the task gets no
/// questions, since it would raise exceptions.
class MacChildProcess final : public platform::ChildProcess {
public:
    explicit MacChildProcess(const platform::ChildProcessOptions& options);

    platform::Outcome launch(platform::TerminationHandler onTermination) override;
    void terminate() override;
    void waitUntilExit() override;
    std::string readOutputToEnd() override;
    std::int32_t terminationStatus() override;

private:
    struct Run;
    [[nodiscard]] bool isLaunched() const;

    const cocoa::Owned<cocoa::NSTask> task_;
    /// The reading end of its standard output; nil unless it is captured.
    const cocoa::Owned<cocoa::NSFileHandle> output_;
    /// Shared with the task's termination handler.
    const std::shared_ptr<Run> run_;
    std::atomic<bool> wasAskedToLaunch_ = false;
};

}  // namespace stagehopper::macos_port
