#include <cmath>
#include <cstdint>
#include <string>

#include "ports/macos/cocoa/foundation/CoreFoundation.h"
#include "ports/macos/cocoa/graphics/AXUIElement.h"
#include "tests/macos/recording/foundation/Bridged.h"
#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/foundation/FoundationStates.h"
#include "tests/macos/recording/runtime/Heap.h"

// Core Foundation: the same objects as Foundation's, counted in the same place.

namespace stagehopper::recording {

namespace {

/// As numbers these mean nothing; they only differ.
enum TypeId : cocoa::CFTypeID { other = 1, string, number, boolean, array, element };

TypeId typeOf(cocoa::id object) {
    if (isKindOf(object, "NSString")) return string;
    if (isKindOf(object, "NSArray")) return array;
    if (isKindOf(object, elementClass)) return element;
    if (!isKindOf(object, "NSNumber")) return other;
    return stateOf<NumberState>(object).truth ? boolean : number;
}

/// Nil, and a problem, for what is no living object: the real functions crash.
cocoa::id living(cocoa::CFTypeRef object, const char* function) {
    if (const auto found = objectOf(object); heap::find(found) != nullptr) return found;
    noteProblem(std::string(function) + " got " + describe(objectOf(object)));
    return nullptr;
}

}  // namespace

cocoa::id objectOf(cocoa::CFTypeRef object) {
    return static_cast<cocoa::id>(const_cast<void*>(object));
}

cocoa::CFTypeRef giveToPort(const Retained& object) {
    heap::retain(object.get(), Holder::port);
    return object.get();
}

}  // namespace stagehopper::recording

namespace stagehopper::cocoa {

using namespace recording;

extern "C" {
CFTypeRef CFRetain(CFTypeRef object) {
    if (const auto found = living(object, "CFRetain")) heap::retain(found, Holder::port);
    return object;
}

void CFRelease(CFTypeRef object) {
    if (const auto found = living(object, "CFRelease")) heap::release(found, Holder::port);
}

CFTypeID CFGetTypeID(CFTypeRef object) {
    return typeOf(living(object, "CFGetTypeID"));
}

CFTypeID CFArrayGetTypeID(void) {
    return recording::array;
}

CFTypeID CFBooleanGetTypeID(void) {
    return recording::boolean;
}

CFTypeID CFNumberGetTypeID(void) {
    return recording::number;
}

CFTypeID CFStringGetTypeID(void) {
    return recording::string;
}

CFTypeID AXUIElementGetTypeID(void) {
    return recording::element;
}

CFIndex CFArrayGetCount(CFArrayRef array) {
    return static_cast<CFIndex>(elementsOf(living(array, "CFArrayGetCount")).size());
}

CFTypeRef CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index) {
    const auto elements = elementsOf(living(array, "CFArrayGetValueAtIndex"));
    if (index >= 0 && static_cast<std::size_t>(index) < elements.size()) {
        return elements[static_cast<std::size_t>(index)];
    }
    noteProblem("CFArrayGetValueAtIndex behind the end");
    return nullptr;
}

Boolean CFBooleanGetValue(CFBooleanRef boolean) {
    const auto object = living(boolean, "CFBooleanGetValue");
    if (typeOf(object) != recording::boolean) {
        noteProblem("CFBooleanGetValue got " + describe(object));
    }
    return truthOf(object) ? 1 : 0;
}

Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value) {
    const auto object = living(number, "CFNumberGetValue");
    if (typeOf(object) != recording::number || type != kCFNumberSInt64Type) {
        noteProblem("CFNumberGetValue got " + describe(object));
        return 0;
    }
    const double exact = stateOf<NumberState>(object).value;
    *static_cast<std::int64_t*>(value) = static_cast<std::int64_t>(exact);
    return exact == std::trunc(exact) ? 1 : 0;
}
}

}  // namespace stagehopper::cocoa
