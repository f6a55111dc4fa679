#pragma once

#include <string>
#include <string_view>

#include "platform/SlideApplication.h"
#include "presentation/SlideDirection.h"

namespace stagehopper {

/// Which keys step a program and how they get to it.
struct KeyStrategy {
    /// Names the strategy in the log.
    std::string word;
    platform::VirtualKey nextKey;
    platform::VirtualKey previousKey;
    /// A program we know: keys go to its process. Otherwise they go to whoever has the focus.
    bool profiled;

    [[nodiscard]] platform::VirtualKey keyFor(SlideDirection direction) const {
        return direction == SlideDirection::next ? nextKey : previousKey;
    }
    /// How the log names the way of the keys.
    [[nodiscard]] std::string_view dispatchWord() const { return profiled ? "pid" : "hid"; }
};

/// The strategy of a row; without a row, arrow keys to whoever has the focus.
KeyStrategy keyStrategy(const platform::SlideApplication* row);

/// The log's word for how a target was recognised.
std::string_view detectionWord(const KeyStrategy& strategy, bool isFront);

}  // namespace stagehopper
