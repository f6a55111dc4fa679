#pragma once

#include <optional>
#include <string>
#include <vector>

namespace stagehopper::linux_port {

/// The names that one window gives its program.
struct WindowNames {
    std::string gtkApplicationId;
    std::string instanceName;
    std::string className;
    bool fullScreen = false;
};

/// The names found for a process: those of all its windows, and the base name of its executable,
/// which is empty when it cannot be read.
struct ProgramTraces {
    std::vector<WindowNames> windows;
    std::string executable;
};

/// The identity of the product behind a process. A product that also exists on other systems has
/// the same identity here; other programs have their application id, else the class name of their
/// first window, else the name of their executable. Absent without any name.
///
/// How to add a program: docs/architecture.md.
std::optional<std::string> programIdentity(const ProgramTraces& traces);

}  // namespace stagehopper::linux_port
