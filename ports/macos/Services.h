#pragma once

#include <memory>

#include "platform/Platform.h"
#include "ports/macos/MacAccessibility.h"
#include "ports/macos/MacApplication.h"
#include "ports/macos/MacChildProcesses.h"
#include "ports/macos/MacClock.h"
#include "ports/macos/MacDispatch.h"
#include "ports/macos/MacHost.h"
#include "ports/macos/MacKeyboardEvents.h"
#include "ports/macos/MacScreens.h"
#include "ports/macos/MacSystemLog.h"
#include "ports/macos/MacText.h"
#include "ports/macos/MacUrlSession.h"
#include "ports/macos/MacUserInterface.h"
#include "ports/macos/MacWorkspace.h"
#include "ports/posix/PosixFileSystem.h"

namespace stagehopper::macos_port {

class AppControllerObject;

/// One of every object of this port. Created on the main thread inside an autorelease pool;
/// outlives the controller.
class Services {
public:
    Services();
    ~Services();
    Services(const Services&) = delete;
    Services& operator=(const Services&) = delete;

    /// The services that the controller uses.
    [[nodiscard]] platform::Platform platform() { return platform(fileSystem_); }
    /// The same services with another file system.
    [[nodiscard]] platform::Platform platform(platform::FileSystem& fileSystem);
    [[nodiscard]] MacApplication& application() { return application_; }

private:
    MacClock clock_;
    posix::PosixFileSystem fileSystem_;
    MacSystemLog systemLog_;
    MacText text_;
    MacHost host_;
    MacDispatch dispatch_;
    MacChildProcesses childProcesses_;
    MacUrlSession urlSession_;
    MacAccessibility accessibility_;
    MacKeyboardEvents keyboardEvents_;
    MacWorkspace workspace_;
    std::shared_ptr<AppControllerObject> appController_;
    MacApplication application_;
    MacScreens screens_;
    MacUserInterface userInterface_;
};

}  // namespace stagehopper::macos_port
