#pragma once

#include "platform/Text.h"

namespace stagehopper::linux_port {

/// Unicode by GLib's tables. Folding is in the locale that the entry point has set. Any thread.
///
/// Letters with a stroke (Ø, Đ, Ł) have no decomposition and stay what they are.
class GlibText final : public platform::Text {
public:
    std::string folded(std::string_view text) override;
    std::string lowercased(std::string_view text) override;
};

}  // namespace stagehopper::linux_port
