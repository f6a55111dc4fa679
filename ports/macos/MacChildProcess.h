#pragma once

#include <atomic>
#include <memory>

#include "platform/ChildProcess.h"
#include "ports/macos/cocoa/foundation/NSFileHandle.h"
#include "ports/macos/cocoa/foundation/NSTask.h"

namespace stagehopper::macos_port {

/// An NSTask, whose exit is what its termination handler says. It cannot be made to end with us
/// when we die: nothing in an NSTask does that. Any thread. Before its launch has succeeded the
/// task is asked nothing: it would raise exceptions.
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
    /// The reading end of its standard output; none when nobody captures that.
    const cocoa::Owned<cocoa::NSFileHandle> output_;
    /// Shared with the task's termination handler.
    const std::shared_ptr<Run> run_;
    std::atomic<bool> wasAskedToLaunch_ = false;
};

}  // namespace stagehopper::macos_port
