#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace stagehopper::companion {

enum class Direction { next, previous };

/// A tap: one slide on, or back.
struct StepMessage {
    Direction direction = Direction::next;
    /// The same when it is sent again.
    std::string id;
};

/// Shares of the screen's width and height, from the upper left.
struct PointerMessage {
    double x = 0;
    double y = 0;
    bool visible = false;
};

using ClientMessage = std::variant<StepMessage, PointerMessage>;

/// None when it is not exactly one of these; members that are not known are passed over.
/// Thread: any; pure.
std::optional<ClientMessage> parseClientMessage(std::string_view text);

}  // namespace stagehopper::companion
