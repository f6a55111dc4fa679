#pragma once

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

#include "ports/macos/cocoa/objc/Encoding.h"
#include "ports/macos/cocoa/objc/Object.h"

namespace stagehopper::recording {

/// A type that can be an argument or a result of a message; a handle counts as its pointer.
template <class T>
concept Crosses =
    std::derived_from<T, cocoa::Object> || std::is_arithmetic_v<T> || std::is_pointer_v<T> ||
    std::same_as<T, cocoa::BlockPointer> || std::same_as<T, cocoa::CGPoint> ||
    std::same_as<T, cocoa::CGSize> || std::same_as<T, cocoa::CGRect>;

/// One argument or result of a message with its encoding. An empty value is "void", and converts to
/// zero or nil of any type. Borrows the object that it points to.
class Value {
public:
    Value() = default;
    /// Implicit, so that a behavior can `return 5UL;`.
    template <Crosses T>
    Value(T value) : encoding_(cocoa::encoding<cocoa::Abi<T>>) {
        if constexpr (std::derived_from<T, cocoa::Object>) {
            store(value.pointer());
        } else {
            store(value);
        }
    }

    /// The type must be the value's own except for constness: `isA<T>()`.
    template <Crosses T>
    [[nodiscard]] T as() const {
        if constexpr (std::derived_from<T, cocoa::Object>) {
            return T(load<cocoa::id>());
        } else {
            return load<T>();
        }
    }
    template <Crosses T>
    [[nodiscard]] bool isA() const {
        return agreesWith(cocoa::encoding<cocoa::Abi<T>>);
    }
    /// Empty values agree with everything.
    [[nodiscard]] bool agreesWith(std::string_view otherEncoding) const;

    [[nodiscard]] std::string_view encoding() const { return encoding_; }
    /// The object, or the block as an object; nil for other types.
    [[nodiscard]] cocoa::id object() const;
    [[nodiscard]] bool isObject() const { return encoding_ == "@" || encoding_ == "@?"; }

    /// For the journal: strings in quotes, `nil`, `@selector(x)`, `{0,0,520,680}`, `^block`,
    /// numbers, `YES` and `NO`, `<NSWindow 1>`.
    [[nodiscard]] std::string describe() const;

private:
    static constexpr std::size_t largest = sizeof(cocoa::CGRect);

    template <class T>
    void store(T value) {
        static_assert(std::is_trivially_copyable_v<T>);
        const auto from = std::as_bytes(std::span<T, 1>(&value, 1));
        static_assert(decltype(from)::extent <= largest);
        std::ranges::copy(from, bytes_.begin());
    }
    template <class T>
    [[nodiscard]] T load() const {
        static_assert(std::is_trivially_copyable_v<T>);
        T value{};
        const auto to = std::as_writable_bytes(std::span<T, 1>(&value, 1));
        static_assert(decltype(to)::extent <= largest);
        std::ranges::copy_n(bytes_.begin(), to.size(), to.begin());
        return value;
    }

    std::string_view encoding_ = "v";
    std::array<std::byte, largest> bytes_{};
};

/// As in the journal.
[[nodiscard]] std::string describe(cocoa::id object);
[[nodiscard]] std::string describe(cocoa::SEL selector);

}  // namespace stagehopper::recording
