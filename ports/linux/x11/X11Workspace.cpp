#include "ports/linux/x11/X11Workspace.h"

#include <algorithm>
#include <filesystem>
#include <string>

#include "ports/linux/system/UrlOpener.h"
#include "ports/linux/x11/ProgramIdentity.h"
#include "ports/linux/x11/X11Desktop.h"

namespace stagehopper::linux_port {

namespace {

using platform::Pid;
using platform::RunningApplication;

/// Empty when the process is gone or belongs to another user.
std::string executableName(Pid process) {
    std::error_code error;
    const auto target =
        std::filesystem::read_symlink("/proc/" + std::to_string(process) + "/exe", error);
    if (error) return {};
    std::string name = target.filename().string();
    // The kernel adds this after an update has replaced the running program's file.
    constexpr std::string_view replaced = " (deleted)";
    if (name.ends_with(replaced)) name.resize(name.size() - replaced.size());
    return name;
}

RunningApplication describe(Pid process, const std::vector<TopLevelWindow>& windows) {
    ProgramTraces traces;
    traces.executable = executableName(process);
    for (const auto& window : windows) {
        if (window.process != process) continue;
        traces.windows.push_back(
            {window.gtkApplicationId, window.instanceName, window.className, window.fullScreen});
    }
    return {process, programIdentity(traces)};
}

}  // namespace

std::vector<RunningApplication> X11Workspace::runningApplications() {
    const auto windows = desktop_.windows();
    std::vector<RunningApplication> applications;
    for (const auto& window : windows) {
        if (!window.process || window.furniture) continue;
        const bool known =
            std::ranges::any_of(applications, [&window](const RunningApplication& other) {
                return other.processIdentifier == *window.process;
            });
        if (!known) applications.push_back(describe(*window.process, windows));
    }
    return applications;
}

std::optional<RunningApplication> X11Workspace::frontmostApplication() {
    const auto focused = desktop_.focusedWindow();
    if (!focused || !focused->process) return std::nullopt;
    return describe(*focused->process, desktop_.windows());
}

bool X11Workspace::open(std::string_view url) {
    return openUrl(std::string(url));
}

}  // namespace stagehopper::linux_port
