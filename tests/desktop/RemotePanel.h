#pragma once

#include <string>

#include "tests/drivers/program/DrivenProgram.h"

namespace stagehopper::desktop {

/// Puts the page of RemotePanel into a folder of the desktop and returns the folder.
[[nodiscard]] std::filesystem::path writeRemotePage(const VirtualDesktop& desktop);

/// The real program with a page that the test controls, so that a step can come while any other
/// window has the focus. One thread.
class RemotePanel {
public:
    /// Waits until the page listens; throws DesktopError.
    explicit RemotePanel(const VirtualDesktop& desktop);
    /// With a folder that writeRemotePage made, and what else was put into it.
    RemotePanel(const VirtualDesktop& desktop, std::filesystem::path pages);

    /// Runs a script in the page.
    void run(const std::string& script);
    void next() { run("electronAPI.sendPptSlide('next', null, 'test')"); }
    void previous() { run("electronAPI.sendPptSlide('prev', null, 'test')"); }
    /// Evaluates an expression in the page and waits for its value, as text; throws DesktopError.
    [[nodiscard]] std::string value(const std::string& expression);

    DrivenProgram* operator->() { return &driven_; }

private:
    std::filesystem::path pages_;
    int commands_ = 0;
    DrivenProgram driven_;
};

}  // namespace stagehopper::desktop
