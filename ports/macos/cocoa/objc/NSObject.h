#pragma once

#include "ports/macos/cocoa/objc/Handle.h"

namespace stagehopper::cocoa {

class NSString;

/// NSObject. Any thread for the members here.
class NSObject : public Handle<NSObject, Object> {
public:
    static constexpr FixedString className{"NSObject"};
    using Handle::Handle;

    [[nodiscard]] NSObject retain() const { return send<"retain", NSObject()>(); }
    void release() const { send<"release", void()>(); }
    /// Hands the reference to the current pool.
    [[nodiscard]] NSObject autorelease() const { return send<"autorelease", NSObject()>(); }

    [[nodiscard]] bool isKindOfClass(Class other) const {
        return fromBOOL(send<"isKindOfClass:", BOOL(Class)>(other));
    }
    [[nodiscard]] bool respondsToSelector(SEL selector) const {
        return fromBOOL(send<"respondsToSelector:", BOOL(SEL)>(selector));
    }
    /// Key-value coding; an unknown key raises an exception.
    void setValueForKey(NSObject value, NSString key) const;

    /// This object as a `T`; nil if it is of another class.
    template <class T>
    [[nodiscard]] T as() const {
        return isKindOfClass(classOf<T>()) ? T(pointer()) : T();
    }
};

}  // namespace stagehopper::cocoa
