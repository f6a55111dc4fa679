#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace stagehopper::companion {

/// What the command line and the environment say.
/// Thread: any; a value.
struct Options {
    /// The ports that may be used, first to last, both included.
    std::uint16_t firstPort = 3000;
    std::uint16_t lastPort = 3050;
    /// Whose end ends the backend, too.
    std::int64_t parent = 0;
    /// Where the pages stand; empty: beside the executable.
    std::string pages;
    /// Empty: there is no home to put it in, standard error has to do.
    std::string logFile;
};

using EnvironmentReader = std::function<std::optional<std::string>(const std::string& name)>;

/// The options, or, for a person, what is wrong with them.
std::variant<Options, std::string> readOptions(const std::vector<std::string>& arguments,
                                               const EnvironmentReader& environment);

}  // namespace stagehopper::companion
