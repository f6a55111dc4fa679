#pragma once

#include "ports/macos/cocoa/foundation/NSArray.h"
#include "ports/macos/cocoa/foundation/NSDictionary.h"
#include "ports/macos/cocoa/foundation/NSError.h"
#include "ports/macos/cocoa/foundation/NSURL.h"
#include "ports/macos/cocoa/objc/Block.h"

namespace stagehopper::cocoa {

/// NSTask. Any thread. Messages about the process raise an exception before a successful launch.
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
    /// `input`, `output` and `error` are an NSPipe or an NSFileHandle. The task closes our writing
    /// end of a pipe.
    void setStandardInput(NSObject input) const {
        send<"setStandardInput:", void(NSObject)>(input);
    }
    void setStandardOutput(NSObject output) const {
        send<"setStandardOutput:", void(NSObject)>(output);
    }
    void setStandardError(NSObject error) const {
        send<"setStandardError:", void(NSObject)>(error);
    }
    /// Called on a system thread after the process exits.
    void setTerminationHandler(const Block<void(NSTask)>& handler) const {
        send<"setTerminationHandler:", void(BlockPointer)>(handler.get());
    }
    /// On failure, `error` has the reason.
    [[nodiscard]] bool launchAndReturnError(NSError& error) const {
        id reported = nullptr;
        const auto launched = send<"launchAndReturnError:", BOOL(id*)>(&reported);
        error = NSError(reported);
        return fromBOOL(launched);
    }
    [[nodiscard]] bool isRunning() const { return fromBOOL(send<"isRunning", BOOL()>()); }
    /// Sends SIGTERM; does nothing after the exit.
    void terminate() const { send<"terminate", void()>(); }
    // Not waitUntilExit: on the main thread it runs the loop inside the caller, on others it may
    // miss the exit and wait forever. The termination handler is always called.
    /// Raises an exception while the process runs.
    [[nodiscard]] int terminationStatus() const { return send<"terminationStatus", int()>(); }

private:
    [[nodiscard]] NSTask init() const { return send<"init", NSTask()>(); }
};

}  // namespace stagehopper::cocoa
