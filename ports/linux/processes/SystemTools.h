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

/// Callers name programs by their paths on macOS. Its route listing and its ping have counterparts
/// here. Its scripting language and its switch for the neighbor radio have none, and a file of that
/// name would be a different program. Every other path is used as given. Any thread.
ToolSubstitute systemTool(const platform::ChildProcessOptions& options);

}  // namespace stagehopper::linux_port
