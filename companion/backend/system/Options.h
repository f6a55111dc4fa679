#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace stagehopper::companion {

/// The settings from the command line and the environment.
struct Options {
    /// The range of ports to try, both ends included.
    std::uint16_t firstPort = 3000;
    std::uint16_t lastPort = 3050;
    /// The process id of the parent: the backend ends when it ends.
    std::int64_t parent = 0;
    /// The folder of the pages. If empty, that of the executable.
    std::string pages;
    /// Empty if there is no home folder: the log then goes to standard error alone.
    std::string logFile;
};

using EnvironmentReader = std::function<std::optional<std::string>(const std::string& name)>;

/// The options, or an error message for a person. Any thread.
[[nodiscard]] std::variant<Options, std::string> readOptions(
    const std::vector<std::string>& arguments, const EnvironmentReader& environment);

}  // namespace stagehopper::companion
