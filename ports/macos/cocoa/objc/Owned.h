#pragma once

#include <utility>

#include "ports/macos/cocoa/objc/NSObject.h"

namespace stagehopper::cocoa {

/// One reference to an object, released by the destructor. Any thread, as far as the object allows
/// it.
template <class T>
class Owned {
public:
    Owned() = default;
    /// Takes over the reference that alloc-init, new or copy returned.
    [[nodiscard]] static Owned adopt(T object) {
        Owned owned;
        owned.object_ = object;
        return owned;
    }
    /// Adds a reference to an object that has other owners.
    [[nodiscard]] static Owned share(T borrowed) {
        if (borrowed) static_cast<void>(borrowed.retain());
        return adopt(borrowed);
    }

    Owned(const Owned& other) : Owned(share(other.object_)) {}
    Owned(Owned&& other) noexcept : object_(other.detach()) {}
    Owned& operator=(Owned other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Owned() {
        if (object_) object_.NSObject::release();
    }

    /// Lends the object: the reference stays here.
    [[nodiscard]] T get() const { return object_; }
    /// Hands the reference to the caller, who must release it. Sends no message.
    [[nodiscard]] T detach() noexcept { return std::exchange(object_, T()); }
    const T* operator->() const { return &object_; }
    explicit operator bool() const { return static_cast<bool>(object_); }

private:
    T object_;
};

}  // namespace stagehopper::cocoa
