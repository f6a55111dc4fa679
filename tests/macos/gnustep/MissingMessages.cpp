#include "tests/macos/gnustep/MissingMessages.h"

#include <cstdio>
#include <memory>

#include "ports/macos/cocoa/Block.h"
#include "ports/macos/cocoa/NSData.h"
#include "ports/macos/cocoa/NSError.h"
#include "ports/macos/cocoa/NSNotification.h"
#include "ports/macos/cocoa/NSURL.h"
#include "tests/macos/gnustep/GnustepBlocks.h"

extern "C" {
extern const stagehopper::cocoa::id NSTaskDidTerminateNotification;
}

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

class NotificationCenter : public Handle<NotificationCenter, NSObject> {
public:
    static constexpr FixedString className{"NSNotificationCenter"};
    using Handle::Handle;

    static NotificationCenter defaultCenter() {
        return sendToClass<"defaultCenter", NotificationCenter()>();
    }
    [[nodiscard]] NSObject addObserverForName(NSString name, NSObject object,
                                              BlockPointer block) const {
        return send<"addObserverForName:object:queue:usingBlock:",
                    NSObject(NSString, NSObject, NSObject, BlockPointer)>(name, object, nullptr,
                                                                          block);
    }
    void removeObserver(NSObject observer) const {
        send<"removeObserver:", void(NSObject)>(observer);
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

BOOL launchAndReturnError(id self, SEL /*name*/, id* error) {
    constexpr NSInteger noSuchFile = 4;
    try {
        OlderTask(self).launch();
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
    const std::shared_ptr<void> kept(_Block_copy(handler.pointer), &_Block_release);
    const auto observer = std::make_shared<NSObject>();
    const Block<void(NSNotification)> onEnd([kept, observer](NSNotification notification) {
        const auto task = Owned<NSObject>::share(notification.object());
        NotificationCenter::defaultCenter().removeObserver(*observer);
        gnustep::callBlock(kept.get(), task.get());
    });
    *observer = NotificationCenter::defaultCenter().addObserverForName(
        NSString(NSTaskDidTerminateNotification), NSObject(self), onEnd.get());
}

id readDataToEndOfFileAndReturnError(id self, SEL /*name*/, id* /*error*/) {
    return OlderFileHandle(self).readDataToEndOfFile().pointer();
}

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
    std::fflush(stdout);
}

}  // namespace gnustep

}  // namespace stagehopper::cocoa
