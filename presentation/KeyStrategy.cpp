#include "presentation/KeyStrategy.h"

namespace stagehopper {

KeyStrategy keyStrategy(const platform::SlideApplication* row) {
    if (row == nullptr) {
        return {"generic_arrows_fallback", platform::virtual_key::rightArrow,
                platform::virtual_key::leftArrow, false};
    }
    return {row->strategy, row->nextKey, row->previousKey, true};
}

std::string_view detectionWord(const KeyStrategy& strategy, bool isFront) {
    if (!strategy.profiled) return "detected_generic";
    return isFront ? "detected_profiled_front" : "detected_profiled_background";
}

}  // namespace stagehopper
