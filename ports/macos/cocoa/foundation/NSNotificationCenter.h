#pragma once

#include "ports/macos/cocoa/foundation/NSString.h"

namespace stagehopper::cocoa {

/// NSNotificationCenter. Any thread; observers are called on the thread that posts.
class NSNotificationCenter : public Handle<NSNotificationCenter, NSObject> {
public:
    static constexpr FixedString className{"NSNotificationCenter"};
    using Handle::Handle;

    static NSNotificationCenter defaultCenter() {
        return sendToClass<"defaultCenter", NSNotificationCenter()>();
    }

    /// `observer` is not retained. A nil object matches every object.
    void addObserver(NSObject observer, SEL selector, NSString name, NSObject object) const {
        send<"addObserver:selector:name:object:", void(NSObject, SEL, NSString, NSObject)>(
            observer, selector, name, object);
    }
    void removeObserver(NSObject observer) const {
        send<"removeObserver:", void(NSObject)>(observer);
    }
};

}  // namespace stagehopper::cocoa
