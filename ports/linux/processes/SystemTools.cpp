#include "ports/linux/processes/SystemTools.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>

#include "ports/linux/processes/RouteTable.h"
#include "ports/posix/PosixFileSystem.h"

namespace stagehopper::linux_port {

namespace {

/// Where systems keep their ping when the user's path does not say.
constexpr const char* usualFolders = "/usr/bin:/bin:/usr/sbin:/sbin";

std::string currentRoutes() {
    std::ifstream table("/proc/net/route");
    const std::string text{std::istreambuf_iterator<char>(table), {}};
    return routeListing(defaultRoutes(text));
}

std::optional<std::filesystem::path> findTool(const std::string& name) {
    const char* path = std::getenv("PATH");
    std::istringstream folders((path != nullptr ? path : "") + std::string(":") + usualFolders);
    for (std::string folder; std::getline(folders, folder, ':');) {
        auto candidate = std::filesystem::path(folder) / name;
        if (candidate.is_absolute() && posix::PosixFileSystem().isExecutableFile(candidate))
            return candidate;
    }
    return std::nullopt;
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
        if (auto found = findTool("ping")) return Executable{std::move(*found)};
        return Refusal{"ping: not installed"};
    }
    return Executable{tool};
}

}  // namespace stagehopper::linux_port
