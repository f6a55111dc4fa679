#pragma once

#include "platform/Text.h"

namespace stagehopper::simulated {

/// Folds ASCII, Latin-1 and combining accents; does not change other scripts. Sufficient for titles
/// in English, French, German and Chinese. The same in every locale. Any thread.
class SimulatedText final : public platform::Text {
public:
    std::string folded(std::string_view text) override;
    std::string lowercased(std::string_view text) override;
};

}  // namespace stagehopper::simulated
