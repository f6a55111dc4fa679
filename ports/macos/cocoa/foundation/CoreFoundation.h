#pragma once

#include <utility>

#include "ports/macos/cocoa/objc/Object.h"

// Core Foundation, as <CoreFoundation/*.h> declare it. Any thread for what stands here.

extern "C" {
struct __CFArray;
struct __CFBoolean;
struct __CFDictionary;
struct __CFNumber;
struct __CFString;
}

namespace stagehopper::cocoa {

using CFTypeRef = const void*;
using CFArrayRef = const ::__CFArray*;
using CFBooleanRef = const ::__CFBoolean*;
using CFDictionaryRef = const ::__CFDictionary*;
using CFNumberRef = const ::__CFNumber*;
using CFStringRef = const ::__CFString*;
using CFIndex = long;
using CFNumberType = CFIndex;
using CFTypeID = unsigned long;
/// Of Core Foundation and of the accessibility functions; not the `bool` of newer ones.
using Boolean = unsigned char;

inline constexpr CFNumberType kCFNumberSInt64Type = 4;

extern "C" {
CFTypeRef CFRetain(CFTypeRef object);
void CFRelease(CFTypeRef object);
CFTypeID CFGetTypeID(CFTypeRef object);
CFTypeID CFArrayGetTypeID(void);
CFTypeID CFBooleanGetTypeID(void);
CFTypeID CFNumberGetTypeID(void);
CFTypeID CFStringGetTypeID(void);
CFIndex CFArrayGetCount(CFArrayRef array);
CFTypeRef CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index);
Boolean CFBooleanGetValue(CFBooleanRef boolean);
/// False when the number does not fit into that type as it is.
Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value);
}

/// An object of Foundation under the name that it has in Core Foundation: NSString is CFString,
/// NSDictionary CFDictionary ("toll-free bridged").
template <class Reference>
[[nodiscard]] Reference bridged(Object object) {
    return static_cast<Reference>(static_cast<CFTypeRef>(object.pointer()));
}

/// The other way; the caller says of which class it is.
[[nodiscard]] inline id foundationObject(CFTypeRef object) {
    return static_cast<id>(const_cast<void*>(object));
}

/// One reference to an object of Core Foundation or of those who follow its rules, released at the
/// end. Any thread, as far as the object allows it.
template <class Reference>
class CFOwned {
public:
    CFOwned() = default;
    /// Takes over the reference that a function with Create or Copy in its name has given.
    [[nodiscard]] static CFOwned adopt(Reference object) {
        CFOwned owned;
        owned.object_ = object;
        return owned;
    }
    /// Keeps an object that belongs to somebody else.
    [[nodiscard]] static CFOwned share(Reference borrowed) {
        if (borrowed != nullptr) CFRetain(borrowed);
        return adopt(borrowed);
    }

    CFOwned(CFOwned&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    CFOwned& operator=(CFOwned&& other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~CFOwned() {
        if (object_ != nullptr) CFRelease(object_);
    }

    /// Lends it.
    [[nodiscard]] Reference get() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

private:
    Reference object_ = nullptr;
};

}  // namespace stagehopper::cocoa
