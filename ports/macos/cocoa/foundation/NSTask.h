#pragma once

#include "ports/macos/cocoa/foundation/NSArray.h"
#include "ports/macos/cocoa/foundation/NSDictionary.h"
#include "ports/macos/cocoa/foundation/NSError.h"
#include "ports/macos/cocoa/foundation/NSURL.h"
#include "ports/macos/cocoa/objc/Block.h"

namespace stagehopper::cocoa {

/// NSTask. Any thread. Messages about a running process raise an exception in a task that was never
/// launched.
class NSTask : public Handle<NSTask, NSObject> {
public:
    static constexpr FixedString className{"NSTask"};
    using Handle::Handle;

    static Owned<NSTask> make() { return Owned<NSTask>::adopt(allocate().init()); }

    void setExecutableURL(NSURL executable) const {
        send<"setExecutableURL:", void(NSURL)>(executable);
    }
    void setArguments(NSArray arguments) const { send<"setArguments:", void(NSArray)>(arguments); }
    void setEnvironment(NSDictionary environment) const {
        send<"setEnvironment:", void(NSDictionary)>(environment);
    }
    void setCurrentDirectoryURL(NSURL directory) const {
        send<"setCurrentDirectoryURL:", void(NSURL)>(directory);
    }
    /// An NSPipe or an NSFileHandle, here and below. Of a pipe the task closes our writing end.
    void setStandardInput(NSObject input) const {
        send<"setStandardInput:", void(NSObject)>(input);
    }
    void setStandardOutput(NSObject output) const {
        send<"setStandardOutput:", void(NSObject)>(output);
    }
    void setStandardError(NSObject error) const {
        send<"setStandardError:", void(NSObject)>(error);
    }
    /// Called on a thread of the system's when the process has exited.
    void setTerminationHandler(const Block<void(NSTask)>& handler) const {
        send<"setTerminationHandler:", void(BlockPointer)>(handler.get());
    }
    /// When it fails, `error` says why.
    [[nodiscard]] bool launchAndReturnError(NSError& error) const {
        id reported = nullptr;
        const auto launched = send<"launchAndReturnError:", BOOL(id*)>(&reported);
        error = NSError(reported);
        return fromBOOL(launched);
    }
    [[nodiscard]] bool isRunning() const { return fromBOOL(send<"isRunning", BOOL()>()); }
    /// SIGTERM; nothing when it has exited.
    void terminate() const { send<"terminate", void()>(); }
    // Not waitUntilExit: on the main thread it runs the loop inside the caller, on others it may
    // miss the exit and wait for ever. The termination handler comes in any case.
    /// Raises an exception while the process runs.
    [[nodiscard]] int terminationStatus() const { return send<"terminationStatus", int()>(); }

private:
    [[nodiscard]] NSTask init() const { return send<"init", NSTask()>(); }
};

}  // namespace stagehopper::cocoa
