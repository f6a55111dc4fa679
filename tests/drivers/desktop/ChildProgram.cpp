#include "tests/drivers/desktop/ChildProgram.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/eventfd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>

#include "tests/drivers/desktop/DesktopError.h"
#include "tests/drivers/desktop/Processes.h"

namespace stagehopper::desktop {

namespace {

struct Pipe {
    int read = -1;
    int write = -1;
};

Pipe makePipe() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw DesktopError("no pipe could be made");
    return {ends[0], ends[1]};
}

std::vector<char*> pointersTo(const std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (const auto& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

/// What happens in the new process before the program starts.
class SpawnPlan {
public:
    SpawnPlan() {
        posix_spawn_file_actions_init(&actions);
        posix_spawnattr_init(&attributes);
        posix_spawnattr_setflags(
            &attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
        posix_spawnattr_setpgroup(&attributes, 0);
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes, &signals);
        sigaddset(&signals, SIGPIPE);
        sigaddset(&signals, SIGINT);
        sigaddset(&signals, SIGTERM);
        posix_spawnattr_setsigdefault(&attributes, &signals);
    }
    ~SpawnPlan() {
        posix_spawnattr_destroy(&attributes);
        posix_spawn_file_actions_destroy(&actions);
    }
    SpawnPlan(const SpawnPlan&) = delete;
    SpawnPlan& operator=(const SpawnPlan&) = delete;

    posix_spawn_file_actions_t actions{};
    posix_spawnattr_t attributes{};
};

/// Cuts a stream of bytes into lines.
class LineReader {
public:
    LineReader(int descriptor, bool isStandardError, ProgramOutput& output)
        : descriptor_(descriptor), isStandardError_(isStandardError), output_(output) {}
    ~LineReader() { close(descriptor_); }
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    /// False at the end of the stream.
    bool readSome() {
        std::array<char, 65536> bytes{};
        const auto count = read(descriptor_, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) return true;
        if (count <= 0) {
            if (!rest_.empty()) deliver(std::move(rest_));
            rest_.clear();
            return false;
        }
        std::string_view chunk(bytes.data(), static_cast<std::size_t>(count));
        for (auto end = chunk.find('\n'); end != std::string_view::npos; end = chunk.find('\n')) {
            rest_ += chunk.substr(0, end);
            deliver(std::move(rest_));
            rest_.clear();
            chunk.remove_prefix(end + 1);
        }
        rest_ += chunk;
        return true;
    }

private:
    void deliver(std::string line) {
        output_.add({std::chrono::steady_clock::now(), isStandardError_, std::move(line)});
    }

    int descriptor_;
    bool isStandardError_;
    ProgramOutput& output_;
    std::string rest_;
};

}  // namespace

ChildProgram::ChildProgram(const ChildOptions& options) : name_(options.command.front()) {
    SpawnPlan plan;
    posix_spawn_file_actions_addchdir_np(&plan.actions, options.workingDirectory.c_str());
    Pipe standardOutput;
    Pipe standardError;
    if (!options.sharesOurStreams) {
        standardOutput = makePipe();
        standardError = makePipe();
        posix_spawn_file_actions_addopen(&plan.actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_adddup2(&plan.actions, standardOutput.write, STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&plan.actions, standardError.write, STDERR_FILENO);
    }
    for (const auto& [ours, theirs] : options.descriptors) {
        posix_spawn_file_actions_adddup2(&plan.actions, ours, theirs);
    }
    const int error =
        posix_spawnp(&pid_, name_.c_str(), &plan.actions, &plan.attributes,
                     pointersTo(options.command).data(), pointersTo(options.environment).data());
    if (standardOutput.write != -1) {
        close(standardOutput.write);
        close(standardError.write);
    }
    if (error != 0) {
        if (standardOutput.read != -1) {
            close(standardOutput.read);
            close(standardError.read);
        }
        throw DesktopError("'" + name_ + "' could not be started: " + std::strerror(error) +
                           (error == ENOENT ? " (tools/setup installs what is needed)" : ""));
    }
    if (options.sharesOurStreams) {
        output_.end();
        return;
    }
    stopReading_ = eventfd(0, EFD_CLOEXEC);
    reader_ = std::thread([this, standardOutput, standardError] {
        readLines(standardOutput.read, standardError.read);
    });
}

ChildProgram::~ChildProgram() {
    end();
    if (!reader_.joinable()) return;
    // A grandchild outside the group may hold the streams open for longer than we care.
    const std::uint64_t now = 1;
    if (write(stopReading_, &now, sizeof now) == sizeof now) reader_.join();
    close(stopReading_);
}

void ChildProgram::readLines(int standardOutput, int standardError) {
    LineReader output(standardOutput, false, output_);
    LineReader error(standardError, true, output_);
    std::array<pollfd, 3> watched{pollfd{standardOutput, POLLIN, 0},
                                  pollfd{standardError, POLLIN, 0},
                                  pollfd{stopReading_, POLLIN, 0}};
    while (watched[0].fd >= 0 || watched[1].fd >= 0) {
        if (poll(watched.data(), watched.size(), -1) < 0) continue;
        if (watched[0].fd >= 0 && watched[0].revents != 0 && !output.readSome()) watched[0].fd = -1;
        if (watched[1].fd >= 0 && watched[1].revents != 0 && !error.readSome()) watched[1].fd = -1;
        if (watched[2].revents != 0) break;
    }
    output_.end();
}

void ChildProgram::reap(int options) {
    if (exitStatus_) return;
    int status = 0;
    if (waitpid(pid_, &status, options) != pid_) return;
    exitStatus_ = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

bool ChildProgram::isRunning() {
    reap(WNOHANG);
    return !exitStatus_;
}

void ChildProgram::signal(int number) const {
    if (exitStatus_) return;
    kill(pid_, number);
    if (number != SIGSTOP) return;
    // On another processor it may still run for a moment.
    siginfo_t state{};
    while (waitid(P_PID, static_cast<id_t>(pid_), &state, WSTOPPED | WEXITED | WNOWAIT) < 0 &&
           errno == EINTR) {
    }
}

std::optional<int> ChildProgram::waitForExit(Limit limit) {
    if (!waitFor([this] { return !isRunning(); }, limit)) return std::nullopt;
    return exitStatus_;
}

void ChildProgram::end(Limit timeout) {
    if (ended_) return;
    ended_ = true;
    const auto groupIsGone = [this] {
        reap(WNOHANG);
        return !isGroupAlive(pid_);
    };
    if (groupIsGone()) return;
    kill(-pid_, SIGTERM);
    if (waitFor(groupIsGone, timeout)) return;
    kill(-pid_, SIGKILL);
    static_cast<void>(waitFor(groupIsGone, std::chrono::seconds(2)));
}

}  // namespace stagehopper::desktop
