#pragma once

#include <cstddef>
#include <string_view>

/// Whether an encoding that we declare makes the same call as one in the table.
namespace stagehopper::macos_facts {

namespace detail {

/// Qualifiers (const, in, inout, out, bycopy, byref, oneway) do not change the call.
[[nodiscard]] constexpr bool isQualifier(char letter) {
    return std::string_view("rnNoORV").find(letter) != std::string_view::npos;
}

/// The next letter at or after `position` that is no qualifier. Inside the name of a structure
/// every letter counts; `inName` follows along.
constexpr std::size_t skipQualifiers(std::string_view encoding, std::size_t position, bool inName) {
    while (!inName && position < encoding.size() && isQualifier(encoding[position])) ++position;
    return position;
}

}  // namespace detail

/// Equal but for qualifiers.
[[nodiscard]] constexpr bool agrees(std::string_view declared, std::string_view known) {
    bool inName = false;
    std::size_t ours = 0;
    std::size_t theirs = 0;
    for (;;) {
        ours = detail::skipQualifiers(declared, ours, inName);
        theirs = detail::skipQualifiers(known, theirs, inName);
        if (ours >= declared.size() || theirs >= known.size()) break;
        const char letter = declared[ours++];
        if (letter != known[theirs++]) return false;
        if (letter == '{') inName = true;
        if (letter == '=' || letter == '}') inName = false;
    }
    return ours >= declared.size() && theirs >= known.size();
}

}  // namespace stagehopper::macos_facts
