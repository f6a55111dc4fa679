#pragma once

#include <algorithm>
#include <array>
#include <concepts>
#include <string_view>
#include <type_traits>

#include "ports/macos/cocoa/objc/Object.h"
#include "ports/macos/cocoa/objc/Runtime.h"

// The runtime's names for C types ("Type Encodings" in Apple's Objective-C Runtime Programming
// Guide), composed at compile time.

namespace stagehopper::cocoa {

/// A block as an argument of a message.
struct BlockPointer {
    void* pointer = nullptr;
};

/// The type that crosses into the runtime: for a handle, the pointer that it holds.
template <class T>
using Abi = std::conditional_t<std::derived_from<T, Object>, id, T>;

/// The primary template is invalid: an argument whose type has no encoding does not compile.
template <class T>
inline constexpr std::string_view encoding = T::hasNoEncoding;
template <>
inline constexpr std::string_view encoding<void> = "v";
template <>
inline constexpr std::string_view encoding<id> = "@";
template <>
inline constexpr std::string_view encoding<Class> = "#";
template <>
inline constexpr std::string_view encoding<SEL> = ":";
template <>
inline constexpr std::string_view encoding<BlockPointer> = "@?";
template <>
inline constexpr std::string_view encoding<bool> = "B";
template <>
inline constexpr std::string_view encoding<signed char> = "c";
template <>
inline constexpr std::string_view encoding<unsigned char> = "C";
template <>
inline constexpr std::string_view encoding<short> = "s";
template <>
inline constexpr std::string_view encoding<unsigned short> = "S";
template <>
inline constexpr std::string_view encoding<int> = "i";
template <>
inline constexpr std::string_view encoding<unsigned> = "I";
template <>
inline constexpr std::string_view encoding<long> = "q";
template <>
inline constexpr std::string_view encoding<unsigned long> = "Q";
template <>
inline constexpr std::string_view encoding<long long> = "q";
template <>
inline constexpr std::string_view encoding<unsigned long long> = "Q";
template <>
inline constexpr std::string_view encoding<float> = "f";
template <>
inline constexpr std::string_view encoding<double> = "d";
template <>
inline constexpr std::string_view encoding<const char*> = "r*";
template <>
inline constexpr std::string_view encoding<void*> = "^v";
template <>
inline constexpr std::string_view encoding<const void*> = "r^v";
template <>
inline constexpr std::string_view encoding<id*> = "^@";
template <>
inline constexpr std::string_view encoding<const id*> = "r^@";
template <>
inline constexpr std::string_view encoding<CGPoint> = "{CGPoint=dd}";
template <>
inline constexpr std::string_view encoding<CGSize> = "{CGSize=dd}";
template <>
inline constexpr std::string_view encoding<CGRect> = "{CGRect={CGPoint=dd}{CGSize=dd}}";

namespace detail {

template <const std::string_view&... parts>
struct Joined {
    static constexpr auto make() {
        std::array<char, (parts.size() + ... + 1)> joined{};
        auto* end = joined.data();
        ((end = std::copy(parts.begin(), parts.end(), end)), ...);
        return joined;
    }
    static constexpr auto text = make();
};

inline constexpr std::string_view receiverAndSelector = "@:";
inline constexpr std::string_view blockItself = "@?";

}  // namespace detail

/// Of a method with this result and these arguments: "v@:q".
template <class Result, class... Arguments>
inline constexpr const char* methodEncoding =
    detail::Joined<encoding<Abi<Result>>, detail::receiverAndSelector,
                   encoding<Abi<Arguments>>...>::text.data();

/// Of a block: "v@?@@".
template <class Result, class... Arguments>
inline constexpr const char* blockEncoding =
    detail::Joined<encoding<Abi<Result>>, detail::blockItself, encoding<Abi<Arguments>>...>::text
        .data();

}  // namespace stagehopper::cocoa
