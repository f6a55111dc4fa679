#include "companion/backend/system/Options.h"

#include <charconv>
#include <string_view>

namespace stagehopper::companion {

namespace {

/// The whole text as a decimal number from min to max.
std::optional<std::int64_t> numberIn(std::string_view text, std::int64_t min, std::int64_t max) {
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    if (value < min || value > max) return std::nullopt;
    return value;
}

std::optional<std::string_view> after(std::string_view prefix, std::string_view text) {
    if (!text.starts_with(prefix)) return std::nullopt;
    return text.substr(prefix.size());
}

std::string logFileFor(const EnvironmentReader& environment) {
    const std::string name = "/stagehopper/backend.log";
    // By convention relative paths in these variables are ignored.
    if (const auto state = environment("XDG_STATE_HOME"); state && state->starts_with('/')) {
        return *state + name;
    }
    if (const auto home = environment("HOME"); home && home->starts_with('/')) {
        return *home + "/.local/state" + name;
    }
    return {};
}

}  // namespace

std::variant<Options, std::string> readOptions(const std::vector<std::string>& arguments,
                                               const EnvironmentReader& environment) {
    Options options;
    for (const std::string& argument : arguments) {
        if (const auto parent = after("--ppid=", argument)) {
            const auto number = numberIn(*parent, 1, INT32_MAX);
            if (!number) return "--ppid= needs the id of a process";
            options.parent = *number;
        } else if (const auto pages = after("--pages=", argument); pages && !pages->empty()) {
            options.pages = *pages;
        } else {
            return "unknown argument: " + argument;
        }
    }
    if (options.parent == 0) return "--ppid= is missing";

    const auto first = numberIn(environment("PORT").value_or("3000"), 1, UINT16_MAX);
    if (!first) return "PORT is no port";
    const auto extra = numberIn(environment("PORT_EXTRA").value_or("50"), 0, UINT16_MAX);
    if (!extra || *first + *extra > UINT16_MAX) return "PORT_EXTRA leads past the last port";
    options.firstPort = static_cast<std::uint16_t>(*first);
    options.lastPort = static_cast<std::uint16_t>(*first + *extra);
    options.logFile = logFileFor(environment);
    return options;
}

}  // namespace stagehopper::companion
