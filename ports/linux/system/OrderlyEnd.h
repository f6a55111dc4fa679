#pragma once

#include <memory>

#include "platform/KeyboardEvents.h"
#include "platform/UrlSession.h"

namespace stagehopper::linux_port {

class GlibDispatch;
class LinuxChildProcesses;

/// After the loop has ended: takes away what uses the controller on other threads, so that it goes
/// on the calling thread and nowhere else. Where a global task or a termination handler still runs,
/// which nothing can interrupt, the process ends around it with `status`: that work finds
/// everything it uses in its place up to the last moment. The keyboard goes in any case: it is the
/// one thing of ours that would stay on the desktop. Main thread; `dispatch` is closed.
void endOrderly(GlibDispatch& dispatch, LinuxChildProcesses& childProcesses,
                std::unique_ptr<platform::UrlSession> urlSession,
                std::unique_ptr<platform::KeyboardEvents>& keyboard, int status);

}  // namespace stagehopper::linux_port
