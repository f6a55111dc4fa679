#include "ports/linux/processes/Spawning.h"

#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace stagehopper::linux_port {

namespace {

constexpr const char* nullDevice = "/dev/null";

class FileActions {
public:
    FileActions() { ::posix_spawn_file_actions_init(&actions_); }
    ~FileActions() { ::posix_spawn_file_actions_destroy(&actions_); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;
    posix_spawn_file_actions_t* get() { return &actions_; }

private:
    posix_spawn_file_actions_t actions_{};
};

class Attributes {
public:
    Attributes() { ::posix_spawnattr_init(&attributes_); }
    ~Attributes() { ::posix_spawnattr_destroy(&attributes_); }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;
    posix_spawnattr_t* get() { return &attributes_; }

private:
    posix_spawnattr_t attributes_{};
};

/// Arguments in the form that C wants: pointers into `texts` and a null pointer at the end.
std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (auto& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> commandLine(const platform::ChildProcessOptions& options) {
    std::vector<std::string> words{options.executable.string()};
    words.insert(words.end(), options.arguments.begin(), options.arguments.end());
    return words;
}

std::vector<std::string> entries(const platform::Environment& environment) {
    std::vector<std::string> lines;
    for (const auto& [name, value] : environment) {
        lines.emplace_back(name).append("=").append(value);
    }
    return lines;
}

/// A terminal without a user: our side of it, and the path of the other side. Not open when the
/// system has no free terminal.
struct Terminal {
    posix::FileDescriptor ours;
    std::string path;
};

Terminal openTerminal() {
    posix::FileDescriptor ours(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
    std::array<char, PATH_MAX> path{};
    if (!ours.isOpen() || ::grantpt(ours.number()) != 0 || ::unlockpt(ours.number()) != 0 ||
        ::ptsname_r(ours.number(), path.data(), path.size()) != 0) {
        return {posix::FileDescriptor(-1), {}};
    }
    return {std::move(ours), path.data()};
}

void describeSignals(posix_spawnattr_t* attributes, bool inOwnSession) {
    sigset_t all;
    sigset_t none;
    ::sigfillset(&all);
    ::sigemptyset(&none);
    ::posix_spawnattr_setsigdefault(attributes, &all);
    ::posix_spawnattr_setsigmask(attributes, &none);
    ::posix_spawnattr_setpgroup(attributes, 0);
    const int group = inOwnSession ? POSIX_SPAWN_SETSID : POSIX_SPAWN_SETPGROUP;
    const int flags = POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | group;
    ::posix_spawnattr_setflags(attributes, static_cast<short>(flags));
}

void describeFiles(posix_spawn_file_actions_t* actions, const posix::FileDescriptor& output,
                   const Terminal& terminal, const platform::ChildProcessOptions& options) {
    // The first terminal that a session opens becomes its controlling terminal.
    const char* input = terminal.ours.isOpen() ? terminal.path.c_str() : nullDevice;
    ::posix_spawn_file_actions_addopen(actions, STDIN_FILENO, input, O_RDONLY, 0);
    if (output.isOpen()) {
        ::posix_spawn_file_actions_adddup2(actions, output.number(), STDOUT_FILENO);
    } else {
        ::posix_spawn_file_actions_addopen(actions, STDOUT_FILENO, nullDevice, O_WRONLY, 0);
    }
    ::posix_spawn_file_actions_addopen(actions, STDERR_FILENO, nullDevice, O_WRONLY, 0);
    ::posix_spawn_file_actions_addclosefrom_np(actions, STDERR_FILENO + 1);
    if (options.currentDirectory) {
        ::posix_spawn_file_actions_addchdir_np(actions, options.currentDirectory->c_str());
    }
}

}  // namespace

std::variant<SpawnedProgram, std::error_code> spawn(const platform::ChildProcessOptions& options) {
    std::array<int, 2> ends{-1, -1};
    if (options.capturesOutput && ::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return std::error_code(errno, std::generic_category());
    }
    posix::FileDescriptor reading(ends[0]);
    const posix::FileDescriptor writing(ends[1]);

    auto terminal = options.endsWithUs ? openTerminal() : Terminal{posix::FileDescriptor(-1), {}};
    Attributes attributes;
    describeSignals(attributes.get(), terminal.ours.isOpen());
    FileActions files;
    describeFiles(files.get(), writing, terminal, options);

    auto words = commandLine(options);
    auto variables =
        options.environment ? entries(*options.environment) : std::vector<std::string>{};
    const auto given = pointersTo(variables);
    pid_t process = 0;
    const int error =
        ::posix_spawn(&process, words.front().c_str(), files.get(), attributes.get(),
                      pointersTo(words).data(), options.environment ? given.data() : environ);
    if (error != 0) return std::error_code(error, std::generic_category());
    return SpawnedProgram{process, std::move(reading), std::move(terminal.ours)};
}

}  // namespace stagehopper::linux_port
