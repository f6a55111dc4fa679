#include "ports/simulated/Desktop.h"

#include <stdexcept>
#include <string>

namespace stagehopper::simulated {

Desktop::Desktop()
    : journal(clock),
      dispatch(clock),
      application(journal, dispatch),
      userInterface(journal, dispatch),
      workspace(journal),
      accessibility(journal, workspace),
      keyboard(journal, clock, workspace),
      systemLog(journal) {
    userInterface.lastWindowWasClosed = [this] { application.lastWindowWasClosed(); };
}

platform::Platform Desktop::platform() {
    return {accessibility, application, clock, dispatch,      files,     host,
            keyboard,      systemLog,   text,  userInterface, workspace, slideApplications};
}

void Desktop::advanceTo(platform::Date date) {
    if (date > clock.now()) {
        advance(std::chrono::duration_cast<std::chrono::nanoseconds>(date - clock.now()));
    }
}

void Desktop::launch(const std::shared_ptr<platform::ApplicationDelegate>& delegate) {
    application.setDelegate(delegate);
    application.finishLaunching();
    runReady();
}

RunningProgram& Desktop::program(platform::Pid pid) {
    const auto program = workspace.find(pid);
    if (!program) throw std::logic_error("no process " + std::to_string(pid));
    return *program;
}

}  // namespace stagehopper::simulated
