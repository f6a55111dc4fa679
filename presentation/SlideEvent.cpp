#include "presentation/SlideEvent.h"

namespace stagehopper {

bool isRepeatedEvent(std::string_view seq, platform::Date now,
                     const std::optional<std::string>& lastSeq,
                     const std::optional<platform::Date>& lastAt) {
    return lastSeq && *lastSeq == seq && lastAt && now - *lastAt < repeatWindow;
}

}  // namespace stagehopper
