#include "tests/macos/recording/runtime/RootObject.h"

#include <functional>

#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Callbacks.h"
#include "tests/macos/recording/runtime/Heap.h"

namespace stagehopper::recording {

namespace {

Value allocate(Call& call) {
    auto* made = call.make(call.className());
    heap::find(made)->raw = true;
    return made;
}

Value makeNew(Call& call) {
    return answer(call.make(call.className()), "init");
}

Value receiver(Call& call) {
    return call.receiver();
}

Value isKind(Call& call) {
    const auto* other = call.argument<cocoa::Class>(0);
    return other != nullptr && isKindOf(call.receiver(), other->name);
}

Value respondsToSelector(Call& call) {
    const auto* selector = call.argument<cocoa::SEL>(0);
    return selector != nullptr && responds(call.receiver(), selector->name);
}

Value itsClass(Call& call) {
    const auto* object = heap::find(call.receiver());
    return object != nullptr ? object->itsClass : classes::asClass(call.receiver());
}

Value isSame(Call& call) {
    return call.receiver() == call.argument<cocoa::id>(0);
}

Value hash(Call& call) {
    return static_cast<cocoa::NSUInteger>(reinterpret_cast<std::uintptr_t>(call.receiver()));
}

}  // namespace

void defineRootObject() {
    define("NSObject", MessageKind::classLevel, "alloc", &allocate);
    define("NSObject", MessageKind::classLevel, "new", &makeNew);
    define("NSObject", MessageKind::instance, "init", &receiver);
    define("NSObject", MessageKind::instance, "self", &receiver);
    // Correct for immutable classes; mutable ones define their own.
    define("NSObject", MessageKind::instance, "copy", &receiver);
    define("NSObject", MessageKind::instance, "isKindOfClass:", &isKind);
    define("NSObject", MessageKind::instance, "respondsToSelector:", &respondsToSelector);
    define("NSObject", MessageKind::instance, "class", &itsClass);
    define("NSObject", MessageKind::instance, "isEqual:", &isSame);
    define("NSObject", MessageKind::instance, "hash", &hash);
}

}  // namespace stagehopper::recording
