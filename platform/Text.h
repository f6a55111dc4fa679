#pragma once

#include <string>
#include <string_view>

namespace stagehopper::platform {

/// Unicode text operations that follow the user's locale. UTF-8 in and out; malformed input is
/// made well-formed first. Any thread.
class Text {
public:
    virtual ~Text() = default;
    /// The text without differences of case and of diacritics, for comparison only.
    virtual std::string folded(std::string_view text) = 0;
    virtual std::string lowercased(std::string_view text) = 0;
};

}  // namespace stagehopper::platform
