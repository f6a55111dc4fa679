// Blocks on GNUstep, whose own cannot be retained as objects. Its library finds the functions here
// before its own.

#include <cstddef>
#include <cstring>

#include "ports/macos/cocoa/objc/Block.h"
#include "ports/macos/cocoa/objc/NSObject.h"

extern "C" {
/// An instance with bytes behind its variables, ready to be retained.
stagehopper::cocoa::id NSAllocateObject(stagehopper::cocoa::Class ofClass,
                                        stagehopper::cocoa::NSUInteger extraBytes, void* zone);
}

namespace stagehopper::cocoa {

namespace {

/// How each block begins.
struct Layout {
    struct Descriptor {
        unsigned long reserved;
        unsigned long size;
        void (*copy)(void* copied, const void* original);
        void (*dispose)(const void* block);
    };
    void* isa;
    int flags;
    int reserved;
    void (*invoke)();
    const Descriptor* descriptor;
};

constexpr int hasCopyAndDispose = 1 << 25;

const Layout& layoutOf(const void* block) {
    return *static_cast<const Layout*>(block);
}

void dealloc(id self, SEL name) {
    const auto& layout = layoutOf(self);
    if ((layout.flags & hasCopyAndDispose) != 0) layout.descriptor->dispose(self);
    const auto inherited = class_getMethodImplementation(classOf<NSObject>(), name);
    reinterpret_cast<void (*)(id, SEL)>(inherited)(self, name);
}

id copyWithZone(id self, SEL /*name*/, void* /*zone*/) {
    return NSObject(self).retain().pointer();
}

/// Of blocks on the heap: objects like any other.
Class heapBlockClass() {
    static const Class made = [] {
        const auto fresh = objc_allocateClassPair(classOf<NSObject>(), "HeapBlock", 0);
        class_addMethod(fresh, selector<"dealloc">(), reinterpret_cast<IMP>(&dealloc), "v@:");
        class_addMethod(fresh, selector<"copyWithZone:">(), reinterpret_cast<IMP>(&copyWithZone),
                        "@@:^v");
        objc_registerClassPair(fresh);
        return fresh;
    }();
    return made;
}

bool isOnStack(const void* block) {
    return layoutOf(block).isa == &_NSConcreteStackBlock[0];
}

}  // namespace

extern "C" {

void* _NSConcreteStackBlock[32];

void* _Block_copy(const void* block) {
    if (block == nullptr) return nullptr;
    if (!isOnStack(block)) {
        return NSObject(static_cast<id>(const_cast<void*>(block))).retain().pointer();
    }
    const auto& original = layoutOf(block);
    constexpr auto variables = sizeof(original.isa);
    const auto size = original.descriptor->size;
    void* copied = NSAllocateObject(heapBlockClass(), size - variables, nullptr);
    std::memcpy(static_cast<std::byte*>(copied) + variables,
                static_cast<const std::byte*>(block) + variables, size - variables);
    if ((original.flags & hasCopyAndDispose) != 0) original.descriptor->copy(copied, block);
    return copied;
}

void _Block_release(const void* block) {
    if (block == nullptr || isOnStack(block)) return;
    NSObject(static_cast<id>(const_cast<void*>(block))).release();
}

}  // extern "C"

}  // namespace stagehopper::cocoa
