#pragma once

#include <memory>
#include <optional>

#include "platform/Platform.h"
#include "platform/SystemLog.h"
#include "ports/json/NlohmannJson.h"
#include "ports/linux/atspi/AtSpiAccessibility.h"
#include "ports/linux/glib/GlibDispatch.h"
#include "ports/linux/glib/GlibText.h"
#include "ports/linux/gtk/LinuxApplication.h"
#include "ports/linux/gtk/LinuxScreens.h"
#include "ports/linux/gtk/LinuxUserInterface.h"
#include "ports/linux/processes/LinuxChildProcesses.h"
#include "ports/linux/system/LinuxHost.h"
#include "ports/linux/system/SystemClock.h"
#include "ports/linux/x11/X11Desktop.h"
#include "ports/linux/x11/X11Workspace.h"
#include "ports/posix/PosixFileSystem.h"

namespace stagehopper::linux_port {

/// Every object of this port, once. Made and used on the main thread; outlives the controller.
///
/// The objects are made in three steps, because a program without a display ends before the
/// second one, and a second instance before the third one.
class LinuxServices {
public:
    /// Makes what needs no display. `log` outlives the services.
    LinuxServices(int argumentCount, const char* const* arguments, platform::SystemLog& log);
    ~LinuxServices();
    LinuxServices(const LinuxServices&) = delete;
    LinuxServices& operator=(const LinuxServices&) = delete;

    /// Opens the display and makes the application. False without a display.
    [[nodiscard]] bool openDisplay();
    [[nodiscard]] LinuxApplication& application() { return *application_; }

    /// Makes the rest, after `openDisplay`. A second instance does not get here: it must not touch
    /// the keyboard of the first one.
    void start();
    /// What the controller asks for, after `start`.
    [[nodiscard]] platform::Platform platform();
    /// The same, with another keyboard and another session.
    [[nodiscard]] platform::Platform platform(platform::KeyboardEvents& keyboardEvents,
                                              platform::UrlSession& urlSession);

    /// After the main loop has ended, before the controller goes; see `endOrderly`.
    void end(int status);

private:
    struct OnDesktop {
        OnDesktop(LinuxApplication& application, platform::SystemLog& log);

        LinuxUserInterface userInterface;
        X11Desktop desktop;
        LinuxScreens screens;
        X11Workspace workspace;
        AtSpiAccessibility accessibility;
        std::unique_ptr<platform::KeyboardEvents> keyboardEvents;
        std::unique_ptr<platform::UrlSession> urlSession;
    };

    platform::SystemLog& log_;
    SystemClock clock_;
    posix::PosixFileSystem fileSystem_;
    GlibText text_;
    LinuxHost host_;
    json_port::NlohmannJson json_;
    GlibDispatch dispatch_;
    LinuxChildProcesses childProcesses_;
    std::optional<LinuxApplication> application_;
    std::optional<OnDesktop> onDesktop_;
};

}  // namespace stagehopper::linux_port
