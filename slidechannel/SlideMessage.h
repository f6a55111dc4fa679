#pragma once

#include <string>
#include <variant>

#include "platform/Json.h"

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

/// Of an unknown type.
struct OtherMessage {
    friend bool operator==(const OtherMessage&, const OtherMessage&) = default;
};

using SlideMessage = std::variant<OtherMessage, WelcomeMessage, SlideNavMessage>;

/// Reads one message of the slide socket: an object with a "type".
SlideMessage parseSlideMessage(const platform::JsonValue& message);

}  // namespace stagehopper
