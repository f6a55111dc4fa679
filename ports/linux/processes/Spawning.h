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
    /// Closing it ends the program, if that is to end with us; else not open.
    posix::FileDescriptor lifeline;
};

/// Starts a program as `options` say, in a process group of its own: what is typed at the terminal
/// that we were started from concerns us alone. Of our open files it gets none, and no signal is
/// ignored or blocked in it. One that is to end with us sits in a session of its own, at a terminal
/// whose other side is ours alone: with its last holder that side closes, and the kernel hangs up
/// on the program. (A signal at the parent's death would not do: the kernel forgets it when a
/// program has rights of its own, as ping has.) Without terminals it starts all the same. An error
/// says why it does not run. Any thread.
std::variant<SpawnedProgram, std::error_code> spawn(const platform::ChildProcessOptions& options);

}  // namespace stagehopper::linux_port
