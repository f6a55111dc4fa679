#include <clocale>
#include <csignal>
#include <cstdlib>

#include "app/AppController.h"
#include "ports/linux/LinuxServices.h"
#include "ports/linux/system/LinuxSystemLog.h"
#include "ports/linux/system/StandardFiles.h"

// The entry point of the Linux program: the only place where the application meets this port.

int main(int argc, char** argv) {
    using namespace stagehopper::linux_port;
    openMissingStandardFiles();
    std::setlocale(LC_ALL, "");
    // Without this, writing to a closed pipe would end the program.
    std::signal(SIGPIPE, SIG_IGN);

    LinuxSystemLog log;
    LinuxServices services(argc, argv, log);
    if (!services.openDisplay()) {
        log.write("Stagehopper: cannot open a display; is DISPLAY set?");
        return EXIT_FAILURE;
    }
    auto& application = services.application();
    if (application.isRunningElsewhere()) return application.run();

    services.start();
    const auto controller = stagehopper::AppController::create(services.platform());
    application.setDelegate(controller);
    const int status = application.run();
    services.end(status);
    return status;
}
