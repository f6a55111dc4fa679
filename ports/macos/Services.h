#pragma once

#include <memory>

#include "platform/Platform.h"
#include "ports/macos/accessibility/MacAccessibility.h"
#include "ports/macos/accessibility/MacKeyboardEvents.h"
#include "ports/macos/accessibility/MacWorkspace.h"
#include "ports/macos/appkit/MacApplication.h"
#include "ports/macos/appkit/MacScreens.h"
#include "ports/macos/appkit/MacUserInterface.h"
#include "ports/macos/dispatch/MacDispatch.h"
#include "ports/macos/network/MacUrlSession.h"
#include "ports/macos/processes/MacChildProcesses.h"
#include "ports/macos/system/MacClock.h"
#include "ports/macos/system/MacHost.h"
#include "ports/macos/system/MacJson.h"
#include "ports/macos/system/MacSystemLog.h"
#include "ports/macos/system/MacText.h"
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
    MacJson json_;
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
