#pragma once

#include <type_traits>

#include "ports/macos/cocoa/objc/Encoding.h"
#include "ports/macos/cocoa/objc/FixedString.h"
#include "ports/macos/cocoa/objc/Runtime.h"

// Messages through GCC's Objective-C runtime, which GNUstep uses. Included by
// cocoa/MessageDispatch.h, which defines what a message is.

namespace stagehopper::cocoa {

namespace gnustep {

/// A message as the port declares it.
struct Declaration {
    const char* className;
    MessageKind kind;
    const char* name;
};

/// The receiver's method; null if its class has none, which is printed on standard output once for
/// each declaration. Any thread.
[[nodiscard]] IMP methodOf(id receiver, SEL name, const Declaration& declaration);

}  // namespace gnustep

/// Sends a message that the handle `Receiver` declares. A message to nil, or one that GNUstep
/// lacks, returns zero.
template <class Receiver, MessageKind kind, FixedString name, class Result, class... Arguments>
Result dispatchMessage(id receiver, Arguments... arguments) {
    static_assert((std::is_trivially_copyable_v<Arguments> && ...));
    if (receiver == nullptr) return Result();
    const auto method = gnustep::methodOf(receiver, selector<name>(),
                                          {Receiver::className.c_str(), kind, name.c_str()});
    if (method == nullptr) return Result();
    return reinterpret_cast<Result (*)(id, SEL, Arguments...)>(method)(receiver, selector<name>(),
                                                                       arguments...);
}

}  // namespace stagehopper::cocoa
