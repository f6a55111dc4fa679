// What GCC's Objective-C runtime and GNUstep have otherwise than Apple's runtime.

#include "ports/macos/cocoa/objc/Runtime.h"

#include <cstdio>
#include <mutex>
#include <set>
#include <string>

#include "ports/macos/cocoa/objc/NSObject.h"

extern "C" {
stagehopper::cocoa::IMP objc_msg_lookup(stagehopper::cocoa::id receiver,
                                        stagehopper::cocoa::SEL name);
stagehopper::cocoa::BOOL class_respondsToSelector(stagehopper::cocoa::Class ofClass,
                                                  stagehopper::cocoa::SEL name);
}

namespace stagehopper::cocoa {

namespace {

void noteMissing(const gnustep::Declaration& declaration) {
    static std::mutex mutex;
    static std::set<std::string> noted;
    const std::string message =
        std::string(declaration.kind == MessageKind::classLevel ? "+" : "-") + "[" +
        declaration.className + " " + declaration.name + "]";
    const std::scoped_lock lock(mutex);
    if (!noted.insert(message).second) return;
    std::printf("GNUstep has no %s\n", message.c_str());
    std::fflush(stdout);
}

/// GNUstep's pools are ordinary objects; the port never sees them.
class NSAutoreleasePool : public Handle<NSAutoreleasePool, NSObject> {
public:
    static constexpr FixedString className{"NSAutoreleasePool"};
    using Handle::Handle;

    static NSAutoreleasePool make() { return allocate().init(); }

private:
    [[nodiscard]] NSAutoreleasePool init() const { return send<"init", NSAutoreleasePool()>(); }
};

}  // namespace

namespace gnustep {

IMP methodOf(id receiver, SEL name, const Declaration& declaration) {
    if (!fromBOOL(class_respondsToSelector(object_getClass(receiver), name))) {
        noteMissing(declaration);
        return nullptr;
    }
    return objc_msg_lookup(receiver, name);
}

}  // namespace gnustep

extern "C" {

// A macro of the header there.
Class object_getClass(id object) {
    return object == nullptr ? nullptr : *reinterpret_cast<Class*>(object);
}

void* objc_autoreleasePoolPush(void) {
    return NSAutoreleasePool::make().pointer();
}
void objc_autoreleasePoolPop(void* pool) {
    // Also ends the pools inside it that were not popped.
    NSAutoreleasePool(static_cast<id>(pool)).release();
}

}  // extern "C"

}  // namespace stagehopper::cocoa
