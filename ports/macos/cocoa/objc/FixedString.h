#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace stagehopper::cocoa {

/// A text known to the compiler, so that selectors and class names can be template arguments.
template <std::size_t size>
struct FixedString {
    char characters[size]{};

    // Implicit: callers write a literal where a FixedString is expected.
    constexpr FixedString(const char (&literal)[size]) { std::copy_n(literal, size, characters); }
    [[nodiscard]] constexpr const char* c_str() const { return characters; }
    [[nodiscard]] constexpr std::string_view view() const { return {characters, size - 1}; }
};

}  // namespace stagehopper::cocoa
