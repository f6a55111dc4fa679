#include <csignal>

#include "app/AppController.h"
#include "ports/macos/Services.h"
#include "ports/macos/cocoa/objc/AutoreleasePool.h"

// The entry point of the macOS program: the only place where the application meets this port.

int main() {
    // A closed pipe at our output must not end the program.
    std::signal(SIGPIPE, SIG_IGN);

    const stagehopper::cocoa::AutoreleasePool pool;
    stagehopper::macos_port::Services services;
    const auto controller = stagehopper::AppController::create(services.platform());
    services.application().setDelegate(controller);
    return services.application().run();
}
