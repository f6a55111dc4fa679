#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Accessibility.h"
#include "ports/linux/atspi/AccessibilityBus.h"
#include "ports/linux/atspi/AtSpiReads.h"

namespace stagehopper::linux_port {

class X11Desktop;

/// The root of a program's interface. Its windows come from the accessibility bus. For a program
/// without windows there (it is not on that bus, or hangs), the window manager lists them, and
/// there is no menu bar. Main thread only. `desktop` outlives it.
class ProgramElement final : public platform::UIElement {
public:
    ProgramElement(std::shared_ptr<AccessibilityBus> bus, X11Desktop& desktop,
                   platform::Pid process)
        : bus_(std::move(bus)), desktop_(desktop), process_(process) {}

    [[nodiscard]] std::optional<platform::AttributeValue> attributeValue(
        platform::AccessibilityAttribute attribute) const override;
    /// A program has nothing to press.
    [[nodiscard]] platform::AccessibilityError press() const override;

private:
    struct BusWindow {
        ObjectReference object;
        std::string title;
        bool active = false;
    };

    struct WindowReply {
        AtSpiRole role = AtSpiRole::invalid;
        std::string title;
        std::uint64_t states = 0;
    };

    [[nodiscard]] std::vector<BusWindow> busWindows() const;
    /// One reply for each cached window, in their order. Absent when the program's list of windows
    /// has changed.
    [[nodiscard]] std::optional<std::vector<WindowReply>> readWindows(
        const CachedProgram& program) const;
    /// Looks for the program on the bus.
    [[nodiscard]] std::optional<CachedProgram> findOnBus() const;
    [[nodiscard]] platform::AttributeList windows() const;
    [[nodiscard]] platform::UIElementRef focusedWindow() const;
    [[nodiscard]] platform::UIElementRef menuBar() const;
    [[nodiscard]] const BusWindow* activeWindow(const std::vector<BusWindow>& windows) const;

    std::shared_ptr<AccessibilityBus> bus_;
    X11Desktop& desktop_;
    platform::Pid process_;
};

}  // namespace stagehopper::linux_port
