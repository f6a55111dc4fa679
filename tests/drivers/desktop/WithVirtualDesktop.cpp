// with-virtual-desktop [--no-accessibility] -- COMMAND ARGUMENT...: runs a command on a virtual
// desktop and exits with its status.

#include <csignal>
#include <iostream>

#include "tests/drivers/desktop/DesktopError.h"
#include "tests/drivers/desktop/VirtualDesktop.h"

namespace {

using stagehopper::desktop::DesktopError;
using stagehopper::desktop::DesktopOptions;
using stagehopper::desktop::VirtualDesktop;

volatile std::sig_atomic_t endAsked = 0;

int usage() {
    std::cerr << "usage: with-virtual-desktop [--no-accessibility] -- COMMAND [ARGUMENT...]\n";
    return 2;
}

int run(const DesktopOptions& options, std::vector<std::string> command) {
    const VirtualDesktop desktop(options);
    const auto program = desktop.startAttached(std::move(command));
    for (;;) {
        if (const auto status = program->waitForExit(std::chrono::milliseconds(200))) {
            return *status;
        }
        if (endAsked != 0) program->signal(endAsked);
    }
}

}  // namespace

int main(int count, char** values) {
    std::vector<std::string> arguments(values + 1, values + count);
    DesktopOptions options;
    if (!arguments.empty() && arguments.front() == "--no-accessibility") {
        options.accessibility = false;
        arguments.erase(arguments.begin());
    }
    if (arguments.size() < 2 || arguments.front() != "--") return usage();
    arguments.erase(arguments.begin());

    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        std::signal(number, [](int asked) { endAsked = asked; });
    }
    try {
        return run(options, std::move(arguments));
    } catch (const DesktopError& error) {
        std::cerr << "with-virtual-desktop: " << error.what() << '\n';
        return 1;
    }
}
