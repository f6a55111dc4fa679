#include "tests/drivers/desktop/DesktopKeeper.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>

#include "tests/drivers/desktop/DesktopError.h"
#include "tests/drivers/desktop/Processes.h"
#include "tests/drivers/desktop/WaitFor.h"

namespace stagehopper::desktop {

namespace {

void endAll(const std::filesystem::path& folder, int signal) {
    for (const auto process : processesWithEnvironment(folder.native())) kill(process, signal);
}

void clearAway(const std::filesystem::path& folder) {
    const auto nobodyLeft = [&] { return processesWithEnvironment(folder.native()).empty(); };
    endAll(folder, SIGTERM);
    if (!waitFor(nobodyLeft, std::chrono::seconds(1))) {
        // More than once: what is being started just now may be missed by one look.
        static_cast<void>(waitFor(
            [&] {
                endAll(folder, SIGKILL);
                return nobodyLeft();
            },
            std::chrono::seconds(5)));
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

/// The keeper's whole life, in its own process and session.
[[noreturn]] void keep(int lifeline, const std::filesystem::path& folder) {
    setsid();
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) ::signal(number, SIG_IGN);
    // We must not keep our parent's streams open: a reader may wait for their end.
    const int nothing = open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nothing, stream);
    dup2(lifeline, 3);
    close_range(4, ~0U, 0);

    char byte = 0;
    while (read(3, &byte, 1) < 0 && errno == EINTR) {
    }
    clearAway(folder);
    _exit(0);
}

}  // namespace

DesktopKeeper::DesktopKeeper() {
    std::string name = std::filesystem::temp_directory_path() / "stagehopper-desktop-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) {
        throw DesktopError("no temporary folder could be made at " + name);
    }
    folder_ = name;

    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw DesktopError("no pipe could be made");
    keeper_ = fork();
    if (keeper_ < 0) throw DesktopError("no process could be made");
    if (keeper_ == 0) {
        close(ends[1]);
        keep(ends[0], folder_);
    }
    close(ends[0]);
    lifeline_ = ends[1];
}

DesktopKeeper::~DesktopKeeper() {
    close(lifeline_);
    waitpid(keeper_, nullptr, 0);
}

}  // namespace stagehopper::desktop
