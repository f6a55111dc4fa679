#pragma once

#include <memory>

#include "platform/KeyboardEvents.h"
#include "platform/UrlSession.h"

namespace stagehopper::linux_port {

class GlibDispatch;
class LinuxChildProcesses;

/// Called after the loop has ended: destroys what uses the controller on other threads, so that the
/// controller is destroyed on the calling thread only. While a global task or a termination handler
/// still runs, which nothing can interrupt, the process exits at once with `status`, and leaves
/// every object that the work uses in place. The keyboard is destroyed in either case: otherwise it
/// would stay on the desktop. Main thread; `dispatch` is closed.
void endOrderly(GlibDispatch& dispatch, LinuxChildProcesses& childProcesses,
                std::unique_ptr<platform::UrlSession> urlSession,
                std::unique_ptr<platform::KeyboardEvents>& keyboard, int status);

}  // namespace stagehopper::linux_port
