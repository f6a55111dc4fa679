#include "ports/simulated/Desktop.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace stagehopper::simulated {

Desktop::Desktop()
    : journal(clock),
      dispatch(clock),
      processes(journal, dispatch),
      network(journal,
              [this](platform::Duration delay, platform::Task task) {
                  dispatch.asyncSystem(delay, std::move(task));
              }),
      application(journal, dispatch),
      userInterface(journal, dispatch),
      workspace(journal),
      accessibility({journal, clock, dispatch}, workspace),
      keyboard(journal, clock, workspace),
      systemLog(journal) {
    clock.sleepOnGlobalQueue = [this](std::chrono::nanoseconds duration) {
        return dispatch.sleepOnGlobalQueue(duration);
    };
    userInterface.lastWindowWasClosed = [this] { application.lastWindowWasClosed(); };
}

// Blocked global work uses the other members, so it is dropped before they are destroyed.
Desktop::~Desktop() {
    dispatch.close();
}

platform::Platform Desktop::platform() {
    return {.accessibility = accessibility,
            .application = application,
            .childProcesses = processes,
            .clock = clock,
            .dispatch = dispatch,
            .fileSystem = files,
            .host = host,
            .json = json,
            .keyboardEvents = keyboard,
            .screens = screens,
            .systemLog = systemLog,
            .text = text,
            .urlSession = network,
            .userInterface = userInterface,
            .workspace = workspace,
            .slideApplications = slideApplications};
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
