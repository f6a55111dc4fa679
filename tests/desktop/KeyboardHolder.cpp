// The port's second keyboard in a process of its own, for the tests: made at the start, reported by
// "ready", and removed on SIGTERM or at the end of standard input. Each number read is a process
// that gets one key; the reply is "sent" or "refused REASON".

#include <unistd.h>

#include <csignal>
#include <iostream>
#include <string>

#include "ports/linux/x11/MasterKeyboard.h"
#include "ports/linux/x11/X11Desktop.h"

namespace {

using namespace stagehopper;

platform::Outcome strike(platform::KeyboardEvents& keyboard, platform::Pid process) {
    const auto down = keyboard.makeKeyboardEvent(platform::virtual_key::rightArrow, true);
    const auto up = keyboard.makeKeyboardEvent(platform::virtual_key::rightArrow, false);
    const auto pressed = keyboard.postToProcess(process, *down);
    const auto released = keyboard.postToProcess(process, *up);
    return pressed ? released : pressed;
}

/// Interrupts the wait for input; the loop below then ends.
void endInput(int /*signal*/) {
    close(STDIN_FILENO);
}

}  // namespace

int main() {
    struct sigaction action {};
    action.sa_handler = endInput;
    sigaction(SIGTERM, &action, nullptr);

    linux_port::X11Desktop desktop;
    linux_port::MasterKeyboard keyboard(desktop);
    std::cout << "ready" << std::endl;
    platform::Pid process = 0;
    while (std::cin >> process) {
        const auto outcome = strike(keyboard, process);
        std::cout << (outcome ? "sent" : "refused " + outcome.reason()) << std::endl;
    }
    return 0;
}
