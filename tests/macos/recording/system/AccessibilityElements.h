#pragma once

#include <cstddef>
#include <optional>
#include <variant>

#include "platform/Workspace.h"
#include "ports/simulated/Program.h"
#include "tests/macos/recording/runtime/Retained.h"

namespace stagehopper::recording {

/// What an element of another program's interface stands for. It outlives what it stands for.
struct ElementState {
    struct SystemWide {};
    struct Program {};
    struct Window {
        std::size_t index = 0;
    };

    platform::Pid process = 0;
    std::variant<SystemWide, Program, Window, simulated::MenuNode> what;
    /// Of calls through this reference alone.
    std::optional<double> timeLimit = std::nullopt;
};

[[nodiscard]] Retained makeElement(ElementState state);

/// The value of an attribute, by the system's name for it ("AXTitle"); empty when the element has
/// none, or its program does not tell.
[[nodiscard]] Retained attributeOf(const ElementState& element, std::string_view attribute);

}  // namespace stagehopper::recording
