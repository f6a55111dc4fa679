#pragma once

#include <cstdint>
#include <utility>

#include "ports/macos/cocoa/objc/Encoding.h"
#include "ports/macos/cocoa/objc/Object.h"

namespace stagehopper::recording {

/// A reference that the system's side of things holds to an object or a block: a strong property,
/// the views of a window, the elements of an array. Does not count as the port's. Any queue.
class Kept {
public:
    Kept() = default;
    explicit Kept(cocoa::id object);
    explicit Kept(cocoa::Object handle) : Kept(handle.pointer()) {}
    explicit Kept(cocoa::BlockPointer block) : Kept(static_cast<cocoa::id>(block.pointer)) {}
    Kept(const Kept& other) : Kept(other.object_) {}
    Kept(Kept&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Kept& operator=(Kept other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Kept();

    /// Takes over a reference that has been counted already.
    [[nodiscard]] static Kept adopt(cocoa::id object) {
        Kept kept;
        kept.object_ = object;
        return kept;
    }

    [[nodiscard]] cocoa::id get() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }
    friend bool operator==(const Kept&, const Kept&) = default;

private:
    cocoa::id object_ = nullptr;
};

/// A property that becomes nil when its object goes: delegates, targets. Any queue.
class Weak {
public:
    Weak() = default;
    explicit Weak(cocoa::id object);
    /// Nil when it has gone.
    [[nodiscard]] cocoa::id get() const;

private:
    cocoa::id object_ = nullptr;
    /// Addresses come back; this does not.
    std::uint64_t number_ = 0;
};

}  // namespace stagehopper::recording
