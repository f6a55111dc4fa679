#pragma once

#include <string>
#include <string_view>
#include <variant>

namespace stagehopper {

/// The room is joined.
struct WelcomeMessage {
    friend bool operator==(const WelcomeMessage&, const WelcomeMessage&) = default;
};

/// A step from a remote.
struct SlideNavMessage {
    /// Unchanged; empty if it was missing or not a string.
    std::string direction;
    /// The sequence tag as text; empty if it was missing.
    std::string seq;

    friend bool operator==(const SlideNavMessage&, const SlideNavMessage&) = default;
};

/// Malformed or of an unknown type.
struct OtherMessage {
    friend bool operator==(const OtherMessage&, const OtherMessage&) = default;
};

using SlideMessage = std::variant<OtherMessage, WelcomeMessage, SlideNavMessage>;

/// Reads one text of the slide socket: a JSON object with a "type".
SlideMessage parseSlideMessage(std::string_view text);

}  // namespace stagehopper
