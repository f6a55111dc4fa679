#pragma once

#include <algorithm>

#include "ports/macos/cocoa/objc/Encoding.h"
#include "ports/macos/cocoa/objc/FixedString.h"
#include "ports/macos/cocoa/objc/MessageDispatch.h"
#include "ports/macos/cocoa/objc/Object.h"

namespace stagehopper::cocoa {

/// One message as a class declares it: its selector and its whole signature. Arguments are
/// converted to the declared types, never deduced from the call.
template <class Receiver, MessageKind kind, FixedString name, class Signature>
struct Message;

template <class Receiver, MessageKind kind, FixedString name, class Result, class... Arguments>
struct Message<Receiver, kind, name, Result(Arguments...)> {
    static_assert(std::ranges::count(name.view(), ':') == sizeof...(Arguments),
                  "a selector has one colon for each argument");

    static Result send(id receiver, Arguments... arguments) {
        if constexpr (std::derived_from<Result, Object>) {
            return Result(dispatchMessage<Receiver, kind, name, id>(receiver, abi(arguments)...));
        } else {
            return dispatchMessage<Receiver, kind, name, Result>(receiver, abi(arguments)...);
        }
    }

private:
    template <class T>
    static Abi<T> abi(T argument) {
        if constexpr (std::derived_from<T, Object>) {
            return argument.pointer();
        } else {
            return argument;
        }
    }
};

}  // namespace stagehopper::cocoa
