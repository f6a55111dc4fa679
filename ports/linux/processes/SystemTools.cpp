#include "ports/linux/processes/SystemTools.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <string>

#include "ports/linux/processes/RouteTable.h"

namespace stagehopper::linux_port {

namespace {

/// Where systems keep their ping. Not the user's PATH: its first match may be an unknown program.
constexpr std::array pings{"/usr/bin/ping", "/bin/ping", "/usr/sbin/ping", "/sbin/ping"};

std::string currentRoutes() {
    std::ifstream table("/proc/net/route");
    const std::string text{std::istreambuf_iterator<char>(table), {}};
    return routeListing(defaultRoutes(text));
}

Refusal unavailable(const std::filesystem::path& tool) {
    return {tool.string() + ": not available on Linux"};
}

}  // namespace

ToolSubstitute systemTool(const platform::ChildProcessOptions& options) {
    const auto& tool = options.executable;
    if (tool == "/sbin/ifconfig" || tool == "/usr/bin/osascript") return unavailable(tool);
    if (tool == "/usr/sbin/netstat" && options.arguments == std::vector<std::string>{"-rn"}) {
        return Answer{&currentRoutes};
    }
    if (tool == "/sbin/ping") {
        const auto* found =
            std::ranges::find_if(pings, [](const char* path) { return ::access(path, X_OK) == 0; });
        if (found != pings.end()) return Executable{*found};
        return Refusal{"ping: not installed"};
    }
    return Executable{tool};
}

}  // namespace stagehopper::linux_port
