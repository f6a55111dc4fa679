#pragma once

#include <string>
#include <string_view>

#include "platform/SlideApplication.h"
#include "presentation/SlideDirection.h"

namespace stagehopper {

/// The keys that step a program, and the way they are sent.
struct KeyStrategy {
    /// Names the strategy in the log.
    std::string word;
    platform::VirtualKey nextKey;
    platform::VirtualKey previousKey;
    /// Whether the program is known: keys go to its process. Otherwise they go to the focus.
    bool profiled;

    [[nodiscard]] platform::VirtualKey keyFor(SlideDirection direction) const {
        return direction == SlideDirection::next ? nextKey : previousKey;
    }
    /// The log's word for the way the keys are sent.
    [[nodiscard]] std::string_view dispatchWord() const { return profiled ? "pid" : "hid"; }
};

/// The strategy of a row; without a row, arrow keys to the focus.
KeyStrategy keyStrategy(const platform::SlideApplication* row);

/// The log's word for how a target was recognized.
std::string_view detectionWord(const KeyStrategy& strategy, bool isFront);

}  // namespace stagehopper
