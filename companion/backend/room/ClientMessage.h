#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace stagehopper::companion {

enum class Direction { next, previous };

/// A tap: one slide forward or back.
struct StepMessage {
    Direction direction = Direction::next;
    /// Stays the same if the message is sent again.
    std::string id;
};

/// x and y are fractions of the screen's width and height, from the upper left corner.
struct PointerMessage {
    double x = 0;
    double y = 0;
    bool visible = false;
};

using ClientMessage = std::variant<StepMessage, PointerMessage>;

/// Null if the text is not a valid message. Unknown members are ignored. Any thread.
[[nodiscard]] std::optional<ClientMessage> parseClientMessage(std::string_view text);

}  // namespace stagehopper::companion
