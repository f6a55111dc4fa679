#pragma once

#include <string>
#include <string_view>

namespace stagehopper::macos_facts {

/// Whether this runtime's BOOL is a signed char, as on 64-bit Intel, where the table has "B".
enum class BoolIs { bool8, signedChar };

/// The runtime's encoding of a method in the form of the table of facts: without the offsets in the
/// frame, the classes of objects ("@\"NSString\"") and the signatures of blocks ("@?<v@?>").
[[nodiscard]] std::string asInTheTable(std::string_view runtimeEncoding, BoolIs boolIs);

}  // namespace stagehopper::macos_facts
