#pragma once

#include <string>
#include <string_view>

namespace stagehopper::platform {

/// Unicode text operations on UTF-8. Malformed input is made well-formed first. Any thread.
class Text {
public:
    virtual ~Text() = default;
    /// Removes differences of case and diacritics, by the user's locale; for comparison only. Other
    /// forms of a character (full width, superscript, "…") are not changed.
    virtual std::string folded(std::string_view text) = 0;
    /// The same in every locale.
    virtual std::string lowercased(std::string_view text) = 0;
};

}  // namespace stagehopper::platform
