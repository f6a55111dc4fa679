#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <variant>

#include "platform/ChildProcess.h"

namespace stagehopper::linux_port {

struct Executable {
    std::filesystem::path path;
};
struct Refusal {
    std::string reason;
};
struct Answer {
    std::function<std::string()> output;
};

/// What is done instead of running a program.
using ToolSubstitute = std::variant<Executable, Refusal, Answer>;

/// Programs are asked for by the places where macOS has them. Its route listing and its ping have
/// their like here; its scripting language and its switch for the neighbour radio do not, and a
/// file of that name would be something else. Every other program is what it is. Any thread.
ToolSubstitute systemTool(const platform::ChildProcessOptions& options);

}  // namespace stagehopper::linux_port
