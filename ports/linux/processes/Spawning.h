#pragma once

#include <sys/types.h>

#include <system_error>
#include <variant>

#include "platform/ChildProcess.h"
#include "ports/posix/FileDescriptor.h"

namespace stagehopper::linux_port {

struct SpawnedProgram {
    pid_t process;
    /// The reading end of its standard output; not open unless it is captured.
    posix::FileDescriptor output;
    /// Closing it ends the program. Open only for programs that must end with us.
    posix::FileDescriptor lifeline;
};

/// Starts a program with `options`, in its own process group, so that keys typed at our terminal
/// reach only us. The program inherits no open file, and no ignored or blocked signal. A program
/// that must end with us gets its own session and a terminal whose other side only we hold: when we
/// are gone, that side closes, and the kernel hangs up on the program. (A signal at the parent's
/// death would not do: the kernel forgets it when a program has rights of its own, as ping has.) It
/// starts even when no terminal is available. An error gives the reason why it does not run. Any
/// thread.
std::variant<SpawnedProgram, std::error_code> spawn(const platform::ChildProcessOptions& options);

}  // namespace stagehopper::linux_port
