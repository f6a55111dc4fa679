#include "presentation/SlideDirection.h"

#include <string>

#include "text/Utf8.h"

namespace stagehopper {

std::optional<SlideDirection> parseSlideDirection(platform::Text& text, std::string_view sent) {
    const std::string normalized = text.lowercased(trimmed(sent));
    for (const auto direction : {SlideDirection::next, SlideDirection::previous}) {
        if (normalized == directionWord(direction)) return direction;
    }
    return std::nullopt;
}

std::string_view directionWord(SlideDirection direction) {
    return direction == SlideDirection::next ? "next" : "prev";
}

}  // namespace stagehopper
