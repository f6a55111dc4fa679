#pragma once

#include <cstddef>
#include <optional>
#include <variant>

#include "platform/Workspace.h"
#include "ports/simulated/Program.h"
#include "tests/macos/recording/runtime/Retained.h"

namespace stagehopper::recording {

/// An element of another program's interface. The element outlives the object that it refers to.
struct ElementState {
    struct SystemWide {};
    struct Program {};
    struct Window {
        std::size_t index = 0;
    };

    platform::Pid process = 0;
    std::variant<SystemWide, Program, Window, simulated::MenuNode> what;
    /// The limit for calls through this reference only.
    std::optional<double> timeLimit = std::nullopt;
};

[[nodiscard]] Retained makeElement(ElementState state);

/// The value of an attribute, by the system's name ("AXTitle"); empty if the element lacks it, or
/// its program does not provide it.
[[nodiscard]] Retained attributeOf(const ElementState& element, std::string_view attribute);

}  // namespace stagehopper::recording
