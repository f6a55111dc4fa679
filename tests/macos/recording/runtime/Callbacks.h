#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "ports/macos/cocoa/objc/Encoding.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Retained.h"
#include "tests/macos/recording/runtime/Value.h"

// Lets the stand-ins call the port as the system does.

namespace stagehopper::recording {

namespace detail {
/// Null, and a problem, if the object has no such method or one with other types.
[[nodiscard]] cocoa::IMP implementationFor(cocoa::id object, std::string_view selector,
                                           std::string_view types);
/// Null, and a problem, if the block is not live or takes other types.
[[nodiscard]] void* invokeFunctionOf(cocoa::id block, std::string_view types);
void journalCallback(cocoa::id object, std::string_view selector, std::span<const Value> arguments);

template <Crosses T>
[[nodiscard]] cocoa::Abi<T> abi(T argument) {
    if constexpr (std::derived_from<T, cocoa::Object>) {
        return argument.pointer();
    } else {
        return argument;
    }
}
}  // namespace detail

/// Sends a message to an object of the port, inside an autorelease pool. Skips an optional method
/// that is absent, and nil: the result is zero. The receiver lives until the method returns.
template <class Result = void, Crosses... Arguments>
Result sendToPort(cocoa::id receiver, std::string_view selector, Arguments... arguments) {
    if (!responds(receiver, selector)) return Result();
    const Retained alive(receiver);
    const auto implementation =
        detail::implementationFor(receiver, selector, cocoa::methodEncoding<Result, Arguments...>);
    if (implementation == nullptr) return Result();
    const std::array<Value, sizeof...(Arguments)> boxed{Value(arguments)...};
    detail::journalCallback(receiver, selector, boxed);
    const cocoa::AutoreleasePool pool;
    using Implementation = cocoa::Abi<Result> (*)(cocoa::id, cocoa::SEL, cocoa::Abi<Arguments>...);
    const auto name = cocoa::sel_registerName(std::string(selector).c_str());
    return Result(reinterpret_cast<Implementation>(implementation)(receiver, name,
                                                                   detail::abi(arguments)...));
}

/// Calls a block that returns nothing. The block lives until it returns.
template <Crosses... Arguments>
void callBlock(const Retained& block, Arguments... arguments) {
    if (!block) return;
    const Retained alive(block.get());
    void* function =
        detail::invokeFunctionOf(block.get(), cocoa::blockEncoding<void, Arguments...>);
    if (function == nullptr) return;
    using Invoke = void (*)(void*, cocoa::Abi<Arguments>...);
    reinterpret_cast<Invoke>(function)(block.get(), detail::abi(arguments)...);
}

}  // namespace stagehopper::recording
