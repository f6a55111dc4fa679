#pragma once

#include <cstdint>
#include <utility>

#include "ports/macos/cocoa/objc/Encoding.h"
#include "ports/macos/cocoa/objc/Object.h"

namespace stagehopper::recording {

/// A reference held by the system's side to an object or a block: a strong property, the views of a
/// window, the elements of an array. Not counted as the port's. Any queue.
class Retained {
public:
    Retained() = default;
    explicit Retained(cocoa::id object);
    explicit Retained(cocoa::Object handle) : Retained(handle.pointer()) {}
    explicit Retained(cocoa::BlockPointer block)
        : Retained(static_cast<cocoa::id>(block.pointer)) {}
    Retained(const Retained& other) : Retained(other.object_) {}
    Retained(Retained&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Retained& operator=(Retained other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Retained();

    /// Takes over a reference that is already counted.
    [[nodiscard]] static Retained adopt(cocoa::id object) {
        Retained kept;
        kept.object_ = object;
        return kept;
    }

    [[nodiscard]] cocoa::id get() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }
    friend bool operator==(const Retained&, const Retained&) = default;

private:
    cocoa::id object_ = nullptr;
};

/// A reference that becomes nil when its object is destroyed: delegates, targets. Any queue.
class Weak {
public:
    Weak() = default;
    explicit Weak(cocoa::id object);
    /// Nil after its object is destroyed.
    [[nodiscard]] cocoa::id get() const;

private:
    cocoa::id object_ = nullptr;
    /// Addresses are reused; this number is not.
    std::uint64_t number_ = 0;
};

}  // namespace stagehopper::recording
