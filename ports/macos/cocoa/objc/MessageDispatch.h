#pragma once

#include <type_traits>

#include "ports/macos/cocoa/objc/Encoding.h"
#include "ports/macos/cocoa/objc/FixedString.h"
#include "ports/macos/cocoa/objc/Runtime.h"

// The one place where a message leaves C++.

namespace stagehopper::cocoa {

enum class MessageKind { instance, classLevel };

/// The selector of that name; looked up once.
template <FixedString name>
[[nodiscard]] SEL selector() {
    static const SEL registered = sel_registerName(name.c_str());
    return registered;
}

}  // namespace stagehopper::cocoa

#if defined(STAGEHOPPER_MESSAGE_DISPATCH)
// Tests replace Apple's runtime. Their header defines `dispatchMessage` with the signature below.
#include STAGEHOPPER_MESSAGE_DISPATCH
#else

extern "C" {
// Never called with these types.
void objc_msgSend(void);
#if defined(__x86_64__)
void objc_msgSend_stret(void);
#endif
}

namespace stagehopper::cocoa {

#if defined(__x86_64__)
/// On this architecture large structures are returned through memory of the caller.
template <class Result>
constexpr bool returnsThroughMemory() {
    if constexpr (std::is_class_v<Result>) return sizeof(Result) > 16;
    return false;
}
#endif

/// Sends a message that the handle `Receiver` declares. A message to nil returns zero, even where
/// the runtime would leave a structure undefined.
template <class Receiver, MessageKind kind, FixedString name, class Result, class... Arguments>
Result dispatchMessage(id receiver, Arguments... arguments) {
    static_assert((std::is_trivially_copyable_v<Arguments> && ...));
    if (receiver == nullptr) return Result();
    // The call must have the exact type of the method.
    using Method = Result (*)(id, SEL, Arguments...);
#if defined(__x86_64__)
    if constexpr (returnsThroughMemory<Result>()) {
        return reinterpret_cast<Method>(&objc_msgSend_stret)(receiver, selector<name>(),
                                                             arguments...);
    }
#endif
    return reinterpret_cast<Method>(&objc_msgSend)(receiver, selector<name>(), arguments...);
}

}  // namespace stagehopper::cocoa

#endif
