#pragma once

#include <chrono>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/drivers/desktop/ChildProgram.h"
#include "tests/drivers/desktop/WaitFor.h"

namespace stagehopper::desktop {

/// A conversation with a browser's debugger over open files that it is started with, without a
/// network port that others could reach: JSON messages, each ended by a zero byte. Events of the
/// browser are handled while we wait for a reply. One thread.
class DebuggerPipe {
public:
    using EventHandler =
        std::function<void(const std::string& method, const nlohmann::json& parameters)>;

    /// Throws DesktopError.
    DebuggerPipe();
    ~DebuggerPipe();
    DebuggerPipe(const DebuggerPipe&) = delete;
    DebuggerPipe& operator=(const DebuggerPipe&) = delete;

    /// The browser's end, under the numbers at which it reads and writes.
    [[nodiscard]] std::vector<HandedDescriptor> browserEnd() const;
    /// To be called once the browser has it, so that we notice when the browser ends.
    void closeBrowserEnd();

    /// Must be set before the first call. It may not make calls itself; its exceptions leave the
    /// call during which the event arrived.
    void onEvent(EventHandler handler) { handler_ = std::move(handler); }
    /// The session that all further calls are for; before, they are for the browser as a whole.
    void setSession(std::string session) { session_ = std::move(session); }

    /// Asks for something and waits for the answer; throws DesktopError, with the browser's words
    /// when it refuses.
    nlohmann::json call(const std::string& method,
                        const nlohmann::json& parameters = nlohmann::json::object(),
                        Limit limit = std::chrono::seconds(20));
    /// Handles events until the condition holds; false when the time is up. Throws DesktopError
    /// when the browser goes.
    [[nodiscard]] bool listenUntil(const std::function<bool()>& condition, Limit limit);

private:
    using Deadline = std::chrono::steady_clock::time_point;

    void send(const std::string& message);
    /// False when the time is up.
    bool readSome(Deadline deadline);
    void takeMessages();

    EventHandler handler_;
    std::string session_;
    int lastCall_ = 0;
    nlohmann::json answer_;
    std::string incoming_;
    int ourEnd_ = -1;
    int browserEnd_ = -1;
};

}  // namespace stagehopper::desktop
