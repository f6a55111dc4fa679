#pragma once

#include "ports/macos/cocoa/objc/Runtime.h"

namespace stagehopper::cocoa {

/// A borrowed Objective-C object: a pointer with a type. Whoever keeps one keeps an `Owned` beside
/// it. Two are equal when they are the same object. The classes derived from it say which messages
/// may be sent; a message to nil does nothing and answers zero.
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
