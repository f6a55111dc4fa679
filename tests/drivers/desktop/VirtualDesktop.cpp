#include "tests/drivers/desktop/VirtualDesktop.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "tests/drivers/desktop/DesktopError.h"

namespace stagehopper::desktop {

namespace {

constexpr std::chrono::seconds startLimit{15};

/// The first line on a program's standard output, which says where it can be reached.
std::string firstLine(ChildProgram& program, const std::string& name) {
    std::optional<std::string> found;
    const auto look = [&] {
        for (const auto& line : program.output().linesFrom(0)) {
            if (!found && !line.onStandardError) found = line.text;
        }
        return found || !program.isRunning();
    };
    if (!waitFor(look, startLimit) || !found) {
        throw DesktopError(name + " did not start:\n" + program.output().text());
    }
    return *found;
}

/// Our environment without what belongs to our own session.
std::vector<std::string> inheritedEnvironment() {
    constexpr std::array<std::string_view, 7> kept{
        "PATH=", "USER=", "LOGNAME=", "SHELL=", "ASAN_OPTIONS=", "TSAN_OPTIONS=", "UBSAN_OPTIONS="};
    std::vector<std::string> found;
    for (char** each = environ; *each != nullptr; ++each) {
        const std::string_view variable = *each;
        if (std::any_of(kept.begin(), kept.end(),
                        [&](auto name) { return variable.starts_with(name); })) {
            found.emplace_back(variable);
        }
    }
    return found;
}

}  // namespace

VirtualDesktop::VirtualDesktop(const DesktopOptions& options)
    : environment_(inheritedEnvironment()) {
    makeFolders();
    const std::string home = folder() / "home";
    for (const std::string& variable :
         {"HOME=" + home, "XDG_CONFIG_HOME=" + home + "/.config",
          "XDG_CACHE_HOME=" + home + "/.cache", "XDG_DATA_HOME=" + home + "/.local/share",
          "XDG_STATE_HOME=" + home + "/.local/state",
          "XDG_RUNTIME_DIR=" + (folder() / "run").native(), std::string("GDK_BACKEND=x11"),
          std::string("GSETTINGS_BACKEND=memory"), std::string("XDG_SESSION_TYPE=x11"),
          "LANG=" + options.language, "LC_ALL=" + options.language}) {
        environment_.push_back(variable);
    }
    startXServer(options.xServerArguments);
    startMessageBus();
    startWindowManager(options.windowManager);
    setAccessibility(busAddress_, options.accessibility);
    accessible_ = std::make_unique<AccessibleTree>(busAddress_);
}

void VirtualDesktop::makeFolders() {
    for (const char* name :
         {"run", "home", "home/.config", "home/.cache", "home/.local/share", "home/.local/state"}) {
        std::filesystem::create_directories(folder() / name);
    }
    std::filesystem::permissions(folder() / "run", std::filesystem::perms::owner_all);
}

std::unique_ptr<ChildProgram> VirtualDesktop::start(
    std::vector<std::string> command, std::vector<HandedDescriptor> descriptors) const {
    return std::make_unique<ChildProgram>(
        ChildOptions{std::move(command), environment_, folder(), false, std::move(descriptors)});
}

std::unique_ptr<ChildProgram> VirtualDesktop::startAttached(
    std::vector<std::string> command) const {
    return std::make_unique<ChildProgram>(
        ChildOptions{std::move(command), environment_, std::filesystem::current_path(), true});
}

void VirtualDesktop::startXServer(const std::vector<std::string>& moreArguments) {
    // It chooses its number itself, so that desktops do not get into each other's way.
    std::vector<std::string> command{"Xvfb",        "-displayfd", "1",   "-screen", "0",
                                     "1280x720x24", "-nolisten",  "tcp", "-noreset"};
    command.insert(command.end(), moreArguments.begin(), moreArguments.end());
    xServer_ = start(std::move(command));
    const std::string name = ":" + firstLine(*xServer_, "Xvfb");
    environment_.push_back("DISPLAY=" + name);
    display_ = std::make_unique<XDisplay>(name);
    windows_ = std::make_unique<Windows>(*display_);
    user_ = std::make_unique<User>(*display_);
}

void VirtualDesktop::startMessageBus() {
    messageBus_ = start({"dbus-daemon", "--session", "--nofork", "--print-address=1",
                         "--address=unix:path=" + (folder() / "run" / "bus").native()});
    busAddress_ = firstLine(*messageBus_, "dbus-daemon");
    environment_.push_back("DBUS_SESSION_BUS_ADDRESS=" + busAddress_);
}

void VirtualDesktop::startWindowManager(const std::vector<std::string>& command) {
    windowManager_ = start(command);
    const bool manages = waitFor(
        [this] {
            return !windowManager_->isRunning() ||
                   !display_->numbers(display_->root(), "_NET_SUPPORTING_WM_CHECK").empty();
        },
        startLimit);
    if (!manages || !windowManager_->isRunning()) {
        throw DesktopError(command.front() + " did not start:\n" + windowManager_->output().text());
    }
}

}  // namespace stagehopper::desktop
