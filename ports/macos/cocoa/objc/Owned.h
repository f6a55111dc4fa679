#pragma once

#include <utility>

#include "ports/macos/cocoa/objc/NSObject.h"

namespace stagehopper::cocoa {

/// One reference to an object, released at the end. Any thread, as far as the object allows it.
template <class T>
class Owned {
public:
    Owned() = default;
    /// Takes over the reference that alloc-init, new or copy has given.
    [[nodiscard]] static Owned adopt(T object) {
        Owned owned;
        owned.object_ = object;
        return owned;
    }
    /// Keeps an object that belongs to somebody else.
    [[nodiscard]] static Owned share(T borrowed) {
        if (borrowed) static_cast<void>(borrowed.retain());
        return adopt(borrowed);
    }

    Owned(const Owned& other) : Owned(share(other.object_)) {}
    Owned(Owned&& other) noexcept : object_(other.release()) {}
    Owned& operator=(Owned other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Owned() {
        if (object_) object_.NSObject::release();
    }

    /// Lends it.
    [[nodiscard]] T get() const { return object_; }
    /// Gives the reference away.
    [[nodiscard]] T release() noexcept { return std::exchange(object_, T()); }
    const T* operator->() const { return &object_; }
    explicit operator bool() const { return static_cast<bool>(object_); }

private:
    T object_;
};

}  // namespace stagehopper::cocoa
