#pragma once

#include "ports/macos/cocoa/objc/Runtime.h"

namespace stagehopper::cocoa {

/// A borrowed Objective-C object: a pointer with a type. To keep the object, keep an `Owned` of it.
/// Two handles are equal if they refer to the same object. Derived classes declare the messages; a
/// message to nil does nothing and returns zero.
class Object {
public:
    constexpr Object() = default;
    constexpr Object(std::nullptr_t) {}
    explicit constexpr Object(id pointer) : pointer_(pointer) {}

    [[nodiscard]] constexpr id pointer() const { return pointer_; }
    explicit constexpr operator bool() const { return pointer_ != nullptr; }
    friend constexpr bool operator==(Object, Object) = default;

private:
    id pointer_ = nullptr;
};

}  // namespace stagehopper::cocoa
