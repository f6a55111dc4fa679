#pragma once

#include <optional>
#include <string>
#include <vector>

namespace stagehopper::linux_port {

/// How one window presents its program.
struct WindowNames {
    std::string gtkApplicationId;
    std::string instanceName;
    std::string className;
    bool fullScreen = false;
};

/// What is known about a process: all its windows, and the base name of its executable, empty when
/// that cannot be read.
struct ProgramTraces {
    std::vector<WindowNames> windows;
    std::string executable;
};

/// The identity of the product behind a process. A product that exists on other systems too has the
/// same identity here; other programs have their application id, else the class name of their first
/// window, else the name of their executable. Absent when there is no trace at all.
///
/// How to add a program: docs/architecture.md.
std::optional<std::string> programIdentity(const ProgramTraces& traces);

}  // namespace stagehopper::linux_port
