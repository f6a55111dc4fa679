#pragma once

#include <string>
#include <string_view>

namespace stagehopper::platform {

/// Unicode text operations. UTF-8 in and out; malformed input is made well-formed first. Any
/// thread.
class Text {
public:
    virtual ~Text() = default;
    /// Without differences of case and of diacritics, in the user's locale; for comparison only.
    /// Other forms of a character (full width, superscript, "…") stay what they are.
    virtual std::string folded(std::string_view text) = 0;
    /// The same in every locale.
    virtual std::string lowercased(std::string_view text) = 0;
};

}  // namespace stagehopper::platform
