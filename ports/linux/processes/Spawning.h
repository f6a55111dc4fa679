#pragma once

#include <sys/types.h>

#include <system_error>
#include <variant>

#include "platform/ChildProcess.h"
#include "ports/posix/FileDescriptor.h"

namespace stagehopper::linux_port {

struct SpawnedProgram {
    pid_t process;
    /// The reading end of its standard output; not open when nobody captures it.
    posix::FileDescriptor output;
};

/// Starts a program as `options` say, in a process group of its own: what is typed at the terminal
/// that we were started from concerns us alone. Of our open files it gets none, and no signal is
/// ignored or blocked in it. An error says why it does not run. Any thread.
std::variant<SpawnedProgram, std::error_code> spawn(const platform::ChildProcessOptions& options);

}  // namespace stagehopper::linux_port
