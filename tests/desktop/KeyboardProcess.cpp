#include "tests/desktop/KeyboardProcess.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <utility>

#include "tests/drivers/desktop/DesktopError.h"
#include "tests/drivers/program/DrivenProgram.h"

namespace stagehopper::desktop {

namespace {

constexpr std::chrono::seconds limit{20};

}  // namespace

KeyboardProcess::KeyboardProcess(const VirtualDesktop& desktop) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw DesktopError("no pipe could be made");
    input_ = ends[1];
    program_ =
        desktop.start({programFolder() / "stagehopper_keyboard_holder"}, {{ends[0], STDIN_FILENO}});
    close(ends[0]);
    if (!program_->output().waitForLine("ready", limit)) {
        throw DesktopError("the second keyboard's process did not start:\n" +
                           program_->output().text());
    }
}

KeyboardProcess::~KeyboardProcess() {
    if (input_ != -1) close(input_);
}

std::string KeyboardProcess::sendKey(pid_t process) {
    const auto line = std::to_string(process) + "\n";
    const auto mark = program_->output().size();
    if (write(input_, line.data(), line.size()) < 0) return "it does not listen";
    if (!program_->output().waitForLine("", limit, mark)) return "it does not answer";
    return program_->output().linesFrom(mark).front().text;
}

std::optional<int> KeyboardProcess::quit() {
    close(std::exchange(input_, -1));
    return program_->waitForExit(limit);
}

std::optional<int> KeyboardProcess::signal(int number) {
    program_->signal(number);
    return program_->waitForExit(limit);
}

}  // namespace stagehopper::desktop
