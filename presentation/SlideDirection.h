#pragma once

#include <optional>
#include <string_view>

#include "platform/Text.h"

namespace stagehopper {

enum class SlideDirection { next, previous };

/// The direction that a channel sent: "next" or "prev", in any case, with blanks around it.
/// Absent for any other text.
std::optional<SlideDirection> parseSlideDirection(platform::Text& text, std::string_view sent);

/// The log's word for a direction: "next" or "prev".
std::string_view directionWord(SlideDirection direction);

}  // namespace stagehopper
