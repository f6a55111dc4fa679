#include "ports/linux/system/OrderlyEnd.h"

#include <cstdlib>

#include "ports/linux/glib/GlibDispatch.h"
#include "ports/linux/processes/LinuxChildProcesses.h"

namespace stagehopper::linux_port {

void endOrderly(GlibDispatch& dispatch, LinuxChildProcesses& childProcesses,
                std::unique_ptr<platform::UrlSession> urlSession,
                std::unique_ptr<platform::KeyboardEvents>& keyboard, int status) {
    childProcesses.close();
    if (dispatch.hasRunningGlobalTasks() || childProcesses.hasRunningHandlers()) {
        keyboard.reset();
        std::_Exit(status);
    }
    // Its completions use the controller.
    urlSession.reset();
}

}  // namespace stagehopper::linux_port
