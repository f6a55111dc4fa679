#pragma once

#include "platform/Text.h"

namespace stagehopper::macos_port {

/// Foundation's text operations in the user's locale. Any thread.
class MacText final : public platform::Text {
public:
    std::string folded(std::string_view text) override;
    std::string lowercased(std::string_view text) override;
};

}  // namespace stagehopper::macos_port
