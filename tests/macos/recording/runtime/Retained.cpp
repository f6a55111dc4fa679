#include "tests/macos/recording/runtime/Retained.h"

#include "tests/macos/recording/runtime/Blocks.h"
#include "tests/macos/recording/runtime/Heap.h"

namespace stagehopper::recording {

Retained::Retained(cocoa::id object) : object_(object) {
    if (object == nullptr) return;
    if (heap::find(object) != nullptr) {
        heap::retain(object, Holder::system);
    } else if (classes::asClass(object) == nullptr) {
        object_ = static_cast<cocoa::id>(blocks::copy(object, Holder::system));
    }
}

Retained::~Retained() {
    if (object_ == nullptr) return;
    if (heap::find(object_) != nullptr) {
        heap::release(object_, Holder::system);
    } else if (blocks::isLive(object_)) {
        blocks::release(object_, Holder::system);
    }
}

Weak::Weak(cocoa::id object) : object_(object) {
    if (const auto* record = heap::find(object)) number_ = record->number;
}

cocoa::id Weak::get() const {
    const auto* record = heap::find(object_);
    // Weak references to an object are nil during its destruction.
    return record != nullptr && record->number == number_ && !record->beingFreed ? object_
                                                                                 : nullptr;
}

}  // namespace stagehopper::recording
