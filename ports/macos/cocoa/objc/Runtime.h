#pragma once

#include <cstddef>
#include <cstdint>

// The C interface of the Objective-C runtime, as <objc/runtime.h>, <objc/message.h> and
// <objc/NSObjCRuntime.h> have it. Declared here by hand, so that the port builds without Apple's
// headers. With Apple's headers in the same source, names such as NSInteger are ambiguous. Any
// thread.

extern "C" {
struct objc_object;
struct objc_class;
struct objc_selector;
struct objc_ivar;
}

namespace stagehopper::cocoa {

using id = ::objc_object*;
using Class = ::objc_class*;
using SEL = ::objc_selector*;
using Ivar = ::objc_ivar*;
using Protocol = ::objc_object;
/// The address of any method; cast it to its exact type before a call.
using IMP = void (*)();

using NSInteger = long;
using NSUInteger = unsigned long;

#if defined(STAGEHOPPER_OBJC_BOOL)
// A runtime other than Apple's defines its own.
using BOOL = STAGEHOPPER_OBJC_BOOL;
#elif defined(__APPLE__) && defined(__x86_64__)
using BOOL = signed char;
#else
using BOOL = bool;
#endif

[[nodiscard]] constexpr BOOL toBOOL(bool value) {
    return static_cast<BOOL>(value);
}
[[nodiscard]] constexpr bool fromBOOL(BOOL value) {
    return value != BOOL{};
}

struct CGPoint {
    double x = 0;
    double y = 0;
};
struct CGSize {
    double width = 0;
    double height = 0;
};
struct CGRect {
    CGPoint origin;
    CGSize size;
};

extern "C" {
Class objc_getClass(const char* name);
Protocol* objc_getProtocol(const char* name);
SEL sel_registerName(const char* name);
Class objc_allocateClassPair(Class superclass, const char* name, std::size_t extraBytes);
void objc_registerClassPair(Class newClass);
BOOL class_addMethod(Class newClass, SEL name, IMP implementation, const char* types);
BOOL class_addIvar(Class newClass, const char* name, std::size_t size, std::uint8_t alignment,
                   const char* types);
BOOL class_addProtocol(Class newClass, Protocol* protocol);
Class object_getClass(id object);
Ivar class_getInstanceVariable(Class ofClass, const char* name);
IMP class_getMethodImplementation(Class ofClass, SEL name);
std::ptrdiff_t ivar_getOffset(Ivar variable);
/// Not in a public header, but every compiler emits it for `@autoreleasepool`.
void* objc_autoreleasePoolPush(void);
void objc_autoreleasePoolPop(void* pool);
}

}  // namespace stagehopper::cocoa
