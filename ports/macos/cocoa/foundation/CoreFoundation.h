#pragma once

#include <utility>

#include "ports/macos/cocoa/objc/Object.h"

// Core Foundation, as declared by <CoreFoundation/*.h>. Any thread for the declarations here.

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
/// The truth type of Core Foundation and of the accessibility functions; newer functions use
/// `bool`.
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
/// False if the number has no exact value of that type.
Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value);
}

/// A Foundation object as its Core Foundation type: NSString is CFString, NSDictionary is
/// CFDictionary ("toll-free bridged").
template <class Reference>
[[nodiscard]] Reference bridged(Object object) {
    return static_cast<Reference>(static_cast<CFTypeRef>(object.pointer()));
}

/// The opposite conversion; the caller chooses the class.
[[nodiscard]] inline id foundationObject(CFTypeRef object) {
    return static_cast<id>(const_cast<void*>(object));
}

/// One reference to an object of Core Foundation, or of a library that follows its rules, released
/// by the destructor. Any thread, as far as the object allows it.
template <class Reference>
class CFOwned {
public:
    CFOwned() = default;
    /// Takes over the reference that a function with Create or Copy in its name returned.
    [[nodiscard]] static CFOwned adopt(Reference object) {
        CFOwned owned;
        owned.object_ = object;
        return owned;
    }
    /// Adds a reference to an object that has other owners.
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

    /// Lends the object: the reference stays here.
    [[nodiscard]] Reference get() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

private:
    Reference object_ = nullptr;
};

}  // namespace stagehopper::cocoa
