#include "network/DefaultRoute.h"

#include <algorithm>

#include "text/Utf8.h"

namespace stagehopper {

namespace {

/// Removes the text up to and including the first `separator`; returns it without the separator.
std::string_view takeUntil(std::string_view& rest, char separator) {
    const auto end = rest.find(separator);
    const auto taken = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    return taken;
}

std::string_view takeField(std::string_view& line) {
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    return takeUntil(line, ' ');
}

}  // namespace

std::optional<std::string> defaultGateway(std::string_view routeTable) {
    if (!isValidUtf8(routeTable)) return std::nullopt;
    while (!routeTable.empty()) {
        auto line = takeUntil(routeTable, '\n');
        if (takeField(line) != "default") continue;
        if (const auto gateway = takeField(line); !gateway.empty()) return std::string(gateway);
    }
    return std::nullopt;
}

}  // namespace stagehopper
