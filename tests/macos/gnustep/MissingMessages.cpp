#include "tests/macos/gnustep/MissingMessages.h"

#include <sys/wait.h>

#include <cerrno>
#include <cstdio>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

#include "ports/macos/cocoa/foundation/NSData.h"
#include "ports/macos/cocoa/foundation/NSError.h"
#include "ports/macos/cocoa/foundation/NSTask.h"
#include "ports/macos/cocoa/foundation/NSURL.h"
#include "ports/macos/cocoa/objc/Block.h"
#include "tests/macos/gnustep/GnustepBlocks.h"
#include "tests/macos/gnustep/Threads.h"

namespace stagehopper::cocoa {

namespace {

/// What NSTask has here.
class OlderTask : public Handle<OlderTask, NSObject> {
public:
    static constexpr FixedString className{"NSTask"};
    using Handle::Handle;

    void setLaunchPath(NSString path) const { send<"setLaunchPath:", void(NSString)>(path); }
    void setCurrentDirectoryPath(NSString path) const {
        send<"setCurrentDirectoryPath:", void(NSString)>(path);
    }
    /// Raises an exception when the program cannot be started.
    void launch() const { send<"launch", void()>(); }
    [[nodiscard]] int processIdentifier() const { return send<"processIdentifier", int()>(); }
};

/// What NSFileHandle has here.
class OlderFileHandle : public Handle<OlderFileHandle, NSObject> {
public:
    static constexpr FixedString className{"NSFileHandle"};
    using Handle::Handle;

    [[nodiscard]] NSData readDataToEndOfFile() const {
        return send<"readDataToEndOfFile", NSData()>();
    }
};

class ErrorFactory : public Handle<ErrorFactory, NSObject> {
public:
    static constexpr FixedString className{"NSError"};
    using Handle::Handle;

    static NSError errorWithDomain(NSString domain, NSInteger code) {
        return sendToClass<"errorWithDomain:code:userInfo:",
                           NSError(NSString, NSInteger, NSObject)>(domain, code, nullptr);
    }
};

void setExecutableUrl(id self, SEL /*name*/, id url) {
    OlderTask(self).setLaunchPath(NSURL(url).path());
}

void setCurrentDirectoryUrl(id self, SEL /*name*/, id url) {
    OlderTask(self).setCurrentDirectoryPath(NSURL(url).path());
}

/// What is called when a task has ended, by the task; set before its launch.
class Handlers {
public:
    static Handlers& shared() {
        // Never unmade: other threads do not stop before the process does.
        static auto& made = *new Handlers;
        return made;
    }
    void set(id task, BlockPointer handler) {
        const std::scoped_lock lock(mutex_);
        blocks_[task] = {_Block_copy(handler.pointer), &_Block_release};
    }
    std::shared_ptr<void> take(id task) {
        const std::scoped_lock lock(mutex_);
        auto found = blocks_.extract(task);
        return found ? std::move(found.mapped()) : nullptr;
    }

private:
    std::mutex mutex_;
    std::map<id, std::shared_ptr<void>> blocks_;
};

/// GNUstep reports an exit on the main run loop; macOS does on a thread of its own, whatever the
/// main one is doing. The process itself is awaited: GNUstep's task no longer "runs" once it was
/// asked to terminate.
void callHandlerAtExit(id self) {
    const auto handler = Handlers::shared().take(self);
    if (!handler) return;
    gnustep::runOnNewThread([handler, task = Owned<NSTask>::share(NSTask(self))] {
        const auto process = static_cast<id_t>(OlderTask(task.get().pointer()).processIdentifier());
        siginfo_t exit{};
        // Fails with another error if the task has collected the exit status already.
        while (::waitid(P_PID, process, &exit, WEXITED | WNOWAIT) == -1 && errno == EINTR) continue;
        gnustep::callBlock(handler.get(), task.get());
    });
}

BOOL launchAndReturnError(id self, SEL /*name*/, id* error) {
    constexpr NSInteger noSuchFile = 4;
    try {
        OlderTask(self).launch();
        callHandlerAtExit(self);
        return toBOOL(true);
    } catch (...) {  // an Objective-C exception
        if (error != nullptr) {
            *error =
                ErrorFactory::errorWithDomain(string("NSCocoaErrorDomain"), noSuchFile).pointer();
        }
        return toBOOL(false);
    }
}

void setTerminationHandler(id self, SEL /*name*/, BlockPointer handler) {
    Handlers::shared().set(self, handler);
}

id readDataToEndOfFileAndReturnError(id self, SEL /*name*/, id* /*error*/) {
    return OlderFileHandle(self).readDataToEndOfFile().pointer();
}

// Windows are not opened again at the next start, and never move by themselves.
void setRestorable(id /*self*/, SEL /*name*/, BOOL /*restorable*/) {}
void setAnimationBehavior(id /*self*/, SEL /*name*/, NSInteger /*behavior*/) {}

template <FixedString name, class Method>
void supply(const char* className, Method* method, const char* types) {
    if (!fromBOOL(class_addMethod(objc_getClass(className), selector<name>(),
                                  reinterpret_cast<IMP>(method), types))) {
        return;  // a later GNUstep has it
    }
    std::printf("GNUstep has no -[%s %s]: supplied\n", className, name.c_str());
}

}  // namespace

namespace gnustep {

void supplyMissingMessages() {
    supply<"setExecutableURL:">("NSTask", &setExecutableUrl, methodEncoding<void, NSURL>);
    supply<"setCurrentDirectoryURL:">("NSTask", &setCurrentDirectoryUrl,
                                      methodEncoding<void, NSURL>);
    supply<"launchAndReturnError:">("NSTask", &launchAndReturnError, methodEncoding<BOOL, id*>);
    supply<"setTerminationHandler:">("NSTask", &setTerminationHandler,
                                     methodEncoding<void, BlockPointer>);
    supply<"readDataToEndOfFileAndReturnError:">("NSFileHandle", &readDataToEndOfFileAndReturnError,
                                                 methodEncoding<NSData, id*>);
    supply<"setRestorable:">("NSWindow", &setRestorable, methodEncoding<void, BOOL>);
    supply<"setAnimationBehavior:">("NSWindow", &setAnimationBehavior,
                                    methodEncoding<void, NSInteger>);
    std::fflush(stdout);
}

}  // namespace gnustep

}  // namespace stagehopper::cocoa
