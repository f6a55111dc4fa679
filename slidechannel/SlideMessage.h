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
    /// As it came; empty when it was missing or no text.
    std::string direction;
    /// The sequence tag as text; empty when it was missing.
    std::string seq;

    friend bool operator==(const SlideNavMessage&, const SlideNavMessage&) = default;
};

/// Malformed, or of a type that is none of ours.
struct OtherMessage {
    friend bool operator==(const OtherMessage&, const OtherMessage&) = default;
};

using SlideMessage = std::variant<OtherMessage, WelcomeMessage, SlideNavMessage>;

/// Reads one text of the slide socket: a JSON object whose "type" says what it is.
SlideMessage parseSlideMessage(std::string_view text);

}  // namespace stagehopper
