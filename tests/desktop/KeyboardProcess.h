#pragma once

#include <memory>
#include <string>

#include "tests/drivers/desktop/VirtualDesktop.h"

namespace stagehopper::desktop {

/// A process that has the port's second keyboard, and nothing else of the program: quick to start
/// and to end in any way. One thread. The desktop must outlive it.
class KeyboardProcess {
public:
    /// Waits until it has tried to get the keyboard; throws DesktopError.
    explicit KeyboardProcess(const VirtualDesktop& desktop);
    ~KeyboardProcess();
    KeyboardProcess(const KeyboardProcess&) = delete;
    KeyboardProcess& operator=(const KeyboardProcess&) = delete;

    /// Sends a key to another process; "sent", or "refused" and the reason.
    [[nodiscard]] std::string sendKey(pid_t process);
    /// Lets it end by itself; its exit status, or absent when it does not end.
    std::optional<int> quit();
    /// Sends a signal and waits for the end of the process.
    std::optional<int> signal(int number);

private:
    int input_ = -1;
    std::unique_ptr<ChildProgram> program_;
};

}  // namespace stagehopper::desktop
