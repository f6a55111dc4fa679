#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "tests/drivers/desktop/AccessibleTree.h"
#include "tests/drivers/desktop/ChildProgram.h"
#include "tests/drivers/desktop/DesktopKeeper.h"
#include "tests/drivers/desktop/Picture.h"
#include "tests/drivers/desktop/User.h"
#include "tests/drivers/desktop/Windows.h"
#include "tests/drivers/desktop/XDisplay.h"

namespace stagehopper::desktop {

struct DesktopOptions {
    std::string language = "C.UTF-8";
    /// Whether programs find accessibility switched on.
    bool accessibility = true;
    std::vector<std::string> windowManager = {"mutter", "--x11", "--sm-disable"};
    /// More for the X server's command line.
    std::vector<std::string> xServerArguments = {};
};

/// A desktop without a screen, with everything that a user's has and nothing of the user's: an X
/// server of 1280 by 720, a message bus, a window manager (mutter composites), an accessibility
/// bus, and empty home folders. Up in half a second. One thread.
///
/// Everything that was started on it ends with it, and its folder goes.
class VirtualDesktop {
public:
    /// Throws DesktopError, which says what is missing.
    explicit VirtualDesktop(const DesktopOptions& options = {});
    VirtualDesktop(const VirtualDesktop&) = delete;
    VirtualDesktop& operator=(const VirtualDesktop&) = delete;

    /// Starts a program here, in the folder of the desktop.
    [[nodiscard]] std::unique_ptr<ChildProgram> start(
        std::vector<std::string> command, std::vector<HandedDescriptor> descriptors = {}) const;
    /// The same with the streams of this program, in its working directory.
    [[nodiscard]] std::unique_ptr<ChildProgram> startAttached(
        std::vector<std::string> command) const;

    /// A place for files; it goes with the desktop.
    [[nodiscard]] const std::filesystem::path& folder() const { return keeper_.folder(); }
    [[nodiscard]] const XDisplay& display() const { return *display_; }
    [[nodiscard]] const Windows& windows() const { return *windows_; }
    [[nodiscard]] const User& user() const { return *user_; }
    [[nodiscard]] const AccessibleTree& accessible() const { return *accessible_; }

private:
    void makeFolders();
    void startXServer(const std::vector<std::string>& moreArguments);
    void startMessageBus();
    void startWindowManager(const std::vector<std::string>& command);

    std::vector<std::string> environment_;
    DesktopKeeper keeper_;
    std::string busAddress_;
    // In the order of their need for each other: the last one ends first.
    std::unique_ptr<ChildProgram> xServer_;
    std::unique_ptr<ChildProgram> messageBus_;
    std::unique_ptr<XDisplay> display_;
    std::unique_ptr<Windows> windows_;
    std::unique_ptr<User> user_;
    std::unique_ptr<ChildProgram> windowManager_;
    std::unique_ptr<AccessibleTree> accessible_;
};

}  // namespace stagehopper::desktop
