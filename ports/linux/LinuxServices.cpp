#include "ports/linux/LinuxServices.h"

#include <utility>

#include "ports/linux/gtk/Display.h"
#include "ports/linux/network/BeastUrlSession.h"
#include "ports/linux/system/OrderlyEnd.h"
#include "ports/linux/x11/LinuxSlideApplications.h"
#include "ports/linux/x11/MasterKeyboard.h"

namespace stagehopper::linux_port {

LinuxServices::OnDesktop::OnDesktop(LinuxApplication& application, platform::SystemLog& log)
    : userInterface(application, log),
      screens(desktop),
      workspace(desktop),
      accessibility(desktop),
      keyboardEvents(std::make_unique<MasterKeyboard>(desktop)),
      urlSession(std::make_unique<BeastUrlSession>()) {}

LinuxServices::LinuxServices(int argumentCount, const char* const* arguments,
                             platform::SystemLog& log)
    : log_(log), host_(argumentCount, arguments) {}

LinuxServices::~LinuxServices() = default;

bool LinuxServices::openDisplay() {
    if (!linux_port::openDisplay()) return false;
    application_.emplace(dispatch_);
    return true;
}

void LinuxServices::start() {
    onDesktop_.emplace(*application_, log_);
}

platform::Platform LinuxServices::platform() {
    return platform(*onDesktop_->keyboardEvents, *onDesktop_->urlSession);
}

platform::Platform LinuxServices::platform(platform::KeyboardEvents& keyboardEvents,
                                           platform::UrlSession& urlSession) {
    return {
        .accessibility = onDesktop_->accessibility,
        .application = *application_,
        .childProcesses = childProcesses_,
        .clock = clock_,
        .dispatch = dispatch_,
        .fileSystem = fileSystem_,
        .host = host_,
        .json = json_,
        .keyboardEvents = keyboardEvents,
        .screens = onDesktop_->screens,
        .systemLog = log_,
        .text = text_,
        .urlSession = urlSession,
        .userInterface = onDesktop_->userInterface,
        .workspace = onDesktop_->workspace,
        .slideApplications = slideApplications(),
    };
}

void LinuxServices::end(int status) {
    endOrderly(dispatch_, childProcesses_, std::move(onDesktop_->urlSession),
               onDesktop_->keyboardEvents, status);
}

}  // namespace stagehopper::linux_port
