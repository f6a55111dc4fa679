#include "ports/macos/Services.h"

#include "ports/macos/appkit/AppControllerObject.h"

namespace stagehopper::macos_port {

Services::Services()
    : appController_(AppControllerObject::create()),
      application_(*appController_),
      screens_(*appController_),
      userInterface_(*appController_) {}

Services::~Services() = default;

platform::Platform Services::platform(platform::FileSystem& fileSystem) {
    return {
        .accessibility = accessibility_,
        .application = application_,
        .childProcesses = childProcesses_,
        .clock = clock_,
        .dispatch = dispatch_,
        .fileSystem = fileSystem,
        .host = host_,
        .json = json_,
        .keyboardEvents = keyboardEvents_,
        .screens = screens_,
        .systemLog = systemLog_,
        .text = text_,
        .urlSession = urlSession_,
        .userInterface = userInterface_,
        .workspace = workspace_,
        // Every slide application of this system is known to all ports.
        .slideApplications = {},
    };
}

}  // namespace stagehopper::macos_port
