#include <clocale>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <utility>

#include "app/AppController.h"
#include "platform/Platform.h"
#include "ports/linux/atspi/AtSpiAccessibility.h"
#include "ports/linux/glib/GlibDispatch.h"
#include "ports/linux/glib/GlibText.h"
#include "ports/linux/gtk/Display.h"
#include "ports/linux/gtk/LinuxApplication.h"
#include "ports/linux/gtk/LinuxScreens.h"
#include "ports/linux/gtk/LinuxUserInterface.h"
#include "ports/linux/network/BeastUrlSession.h"
#include "ports/linux/processes/LinuxChildProcesses.h"
#include "ports/linux/system/LinuxHost.h"
#include "ports/linux/system/LinuxSystemLog.h"
#include "ports/linux/system/OrderlyEnd.h"
#include "ports/linux/system/StandardFiles.h"
#include "ports/linux/system/SystemClock.h"
#include "ports/linux/x11/LinuxSlideApplications.h"
#include "ports/linux/x11/MasterKeyboard.h"
#include "ports/linux/x11/X11Desktop.h"
#include "ports/linux/x11/X11Workspace.h"
#include "ports/posix/PosixFileSystem.h"

// The entry point of the Linux program: the only place where the application meets this port.

namespace stagehopper::linux_port {

namespace {

/// What other threads may use, too.
struct SharedServices {
    SystemClock clock;
    posix::PosixFileSystem fileSystem;
    LinuxSystemLog systemLog;
    GlibText text;
    LinuxHost host;
    GlibDispatch dispatch;
    LinuxChildProcesses childProcesses;
};

/// From the open display to its end. The controller goes before the objects that it uses; nobody
/// else holds it strongly by then.
int runOnDisplay(SharedServices& services) {
    LinuxApplication application(services.dispatch);
    // Before anything else is made: a second start must leave the keyboard of the first alone.
    if (application.isRunningElsewhere()) return application.run();

    LinuxUserInterface userInterface(application, services.systemLog);
    X11Desktop desktop;
    LinuxScreens screens(desktop);
    X11Workspace workspace(desktop);
    AtSpiAccessibility accessibility(desktop);
    std::unique_ptr<platform::KeyboardEvents> keyboard = std::make_unique<MasterKeyboard>(desktop);
    auto urlSession = std::make_unique<BeastUrlSession>();

    const auto controller = AppController::create({
        .accessibility = accessibility,
        .application = application,
        .childProcesses = services.childProcesses,
        .clock = services.clock,
        .dispatch = services.dispatch,
        .fileSystem = services.fileSystem,
        .host = services.host,
        .keyboardEvents = *keyboard,
        .screens = screens,
        .systemLog = services.systemLog,
        .text = services.text,
        .urlSession = *urlSession,
        .userInterface = userInterface,
        .workspace = workspace,
        .slideApplications = slideApplications(),
    });
    application.setDelegate(controller);
    const int status = application.run();

    endOrderly(services.dispatch, services.childProcesses, std::move(urlSession), keyboard, status);
    return status;
}

}  // namespace

}  // namespace stagehopper::linux_port

int main(int argc, char** argv) {
    using namespace stagehopper::linux_port;
    openMissingStandardFiles();
    std::setlocale(LC_ALL, "");
    // A reader of our output that went away must not take the program with it.
    std::signal(SIGPIPE, SIG_IGN);

    SharedServices services{{}, {}, {}, {}, LinuxHost(argc, argv), {}, {}};
    if (!openDisplay()) {
        services.systemLog.write("Stagehopper: cannot open a display; is DISPLAY set?");
        return EXIT_FAILURE;
    }
    return runOnDisplay(services);
}
