#include "ports/linux/x11/KeyTarget.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace stagehopper::linux_port {

std::optional<WindowId> keyTarget(const std::vector<TopLevelWindow>& windows, platform::Pid process,
                                  WindowId focused) {
    const auto rank = [focused](const TopLevelWindow& window) {
        return std::tuple(!window.hidden, window.fullScreen, window.id == focused,
                          window.stackingPosition);
    };
    const TopLevelWindow* best = nullptr;
    for (const auto& window : windows) {
        if (window.process != process || window.furniture) continue;
        if (best == nullptr || rank(window) > rank(*best)) best = &window;
    }
    return best == nullptr ? std::nullopt : std::optional(best->id);
}

FocusPolicy focusPolicy(std::string_view windowManager) {
    // GNOME Shell and Budgie are built on Mutter; Muffin is Cinnamon's branch of it.
    constexpr std::array<std::string_view, 4> mutterNames{"Mutter", "GNOME Shell", "Muffin",
                                                          "Budgie"};
    const auto isNamed = [windowManager](std::string_view name) {
        return windowManager.find(name) != std::string_view::npos;
    };
    if (std::ranges::any_of(mutterNames, isNamed)) return FocusPolicy::clear;
    if (isNamed("KWin")) return FocusPolicy::keep;
    return FocusPolicy::restore;
}

}  // namespace stagehopper::linux_port
