#include <clocale>
#include <csignal>
#include <cstdlib>
#include <memory>

#include "app/AppController.h"
#include "platform/Platform.h"
#include "ports/linux/Display.h"
#include "ports/linux/GlibDispatch.h"
#include "ports/linux/GlibText.h"
#include "ports/linux/LinuxApplication.h"
#include "ports/linux/LinuxHost.h"
#include "ports/linux/LinuxSystemLog.h"
#include "ports/linux/LinuxUserInterface.h"
#include "ports/linux/PosixFileSystem.h"
#include "ports/linux/StandardFiles.h"
#include "ports/linux/SystemClock.h"
#include "ports/linux/desktop/AtSpiAccessibility.h"
#include "ports/linux/desktop/LinuxSlideApplications.h"
#include "ports/linux/desktop/MasterKeyboard.h"
#include "ports/linux/desktop/X11Desktop.h"
#include "ports/linux/desktop/X11Workspace.h"

// The entry point of the Linux program: the only place where the application meets this port.

namespace stagehopper::linux_port {

namespace {

/// What other threads may use, too.
struct SharedServices {
    SystemClock clock;
    PosixFileSystem fileSystem;
    LinuxSystemLog systemLog;
    GlibText text;
    LinuxHost host;
    GlibDispatch dispatch;
};

/// From the open display to its end. The controller goes before the objects that it uses; nobody
/// else holds it strongly.
int runOnDisplay(SharedServices& services) {
    LinuxApplication application(services.dispatch);
    // Before anything else is made: a second start must leave the keyboard of the first alone.
    if (application.isRunningElsewhere()) return application.run();

    LinuxUserInterface userInterface(application);
    X11Desktop desktop;
    X11Workspace workspace(desktop);
    AtSpiAccessibility accessibility(desktop);
    MasterKeyboard keyboard(desktop);

    const auto controller = AppController::create({
        .accessibility = accessibility,
        .application = application,
        .clock = services.clock,
        .dispatch = services.dispatch,
        .fileSystem = services.fileSystem,
        .host = services.host,
        .keyboardEvents = keyboard,
        .systemLog = services.systemLog,
        .text = services.text,
        .userInterface = userInterface,
        .workspace = workspace,
        .slideApplications = slideApplications(),
    });
    application.setDelegate(controller);
    return application.run();
}

}  // namespace

}  // namespace stagehopper::linux_port

int main(int argc, char** argv) {
    using namespace stagehopper::linux_port;
    openMissingStandardFiles();
    std::setlocale(LC_ALL, "");
    // A reader of our output that went away must not take the program with it.
    std::signal(SIGPIPE, SIG_IGN);

    SharedServices services{{}, {}, {}, {}, LinuxHost(argc, argv), {}};
    if (!openDisplay()) {
        services.systemLog.write("Stagehopper: cannot open a display; is DISPLAY set?");
        return EXIT_FAILURE;
    }
    const int status = runOnDisplay(services);
    // A blocking wait on another thread cannot be interrupted: the process ends around it, before
    // the services that it may use are gone.
    if (services.dispatch.hasRunningGlobalTasks()) std::_Exit(status);
    return status;
}
