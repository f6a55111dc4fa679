#pragma once

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>

#include "ports/macos/cocoa/objc/Encoding.h"

/// The encodings of C types, of which messages need but a few: functions, and pointers to anything.
namespace stagehopper::macos_facts {

/// The name of a type without its namespaces, as the compiler knows it.
template <class T>
[[nodiscard]] constexpr std::string_view typeName() {
    std::string_view name = __PRETTY_FUNCTION__;
    name.remove_prefix(name.find("T = ") + 4);
    name = name.substr(0, name.find_first_of(";]"));
    const auto scope = name.rfind(':');
    return scope == std::string_view::npos ? name : name.substr(scope + 1);
}

template <class T>
[[nodiscard]] std::string encodingOf();

/// A function's: "v(@,Q)".
template <class T>
struct SignatureOf;
template <class Result, class... Arguments>
struct SignatureOf<Result(Arguments...)> {
    static std::string text() {
        std::string arguments;
        ((arguments += (arguments.empty() ? "" : ",") + encodingOf<Arguments>()), ...);
        return encodingOf<Result>() + "(" + arguments + ")";
    }
};
template <class Result, class... Arguments>
struct SignatureOf<Result(Arguments..., ...)> {
    static std::string text() {
        auto fixed = SignatureOf<Result(Arguments...)>::text();
        return fixed.insert(fixed.size() - 1, ",...");
    }
};

namespace detail {

template <class T>
concept OfTheRuntime = std::same_as<T, cocoa::id> || std::same_as<T, cocoa::Class> ||
    std::same_as<T, cocoa::SEL> || std::same_as<T, cocoa::BlockPointer>;

template <class Pointee>
[[nodiscard]] std::string encodingOfPointerTo() {
    if constexpr (std::is_function_v<Pointee>) {
        return "^?";
    } else if constexpr (std::same_as<std::remove_const_t<Pointee>, char>) {
        return "*";
    } else {
        return "^" + encodingOf<std::remove_const_t<Pointee>>();
    }
}

}  // namespace detail

template <class T>
[[nodiscard]] std::string encodingOf() {
    using Plain = std::remove_cv_t<T>;
    if constexpr (detail::OfTheRuntime<Plain>) {
        return std::string(cocoa::encoding<Plain>);
    } else if constexpr (std::is_pointer_v<Plain>) {
        return detail::encodingOfPointerTo<std::remove_pointer_t<Plain>>();
    } else if constexpr (std::is_array_v<Plain>) {
        return "[" + std::to_string(std::extent_v<Plain>) +
               encodingOf<std::remove_extent_t<Plain>>() + "]";
    } else if constexpr (std::is_enum_v<Plain>) {
        return encodingOf<std::underlying_type_t<Plain>>();
    } else if constexpr (std::is_void_v<Plain> || requires { sizeof(Plain); }) {
        return std::string(cocoa::encoding<cocoa::Abi<Plain>>);
    } else {
        // A structure that only its library can look into.
        return "{" + std::string(typeName<Plain>()) + "=}";
    }
}

}  // namespace stagehopper::macos_facts
