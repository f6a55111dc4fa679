#pragma once

#include <string>

namespace stagehopper::linux_port {

class X11Connection;

/// Collects the X errors of one connection while it stands: windows vanish between any two calls.
/// Errors of other connections, GDK's say, go to the handler that was there before. A lost
/// connection is noted there instead of ending the program. Main thread only; traps may nest.
class XErrorTrap {
public:
    explicit XErrorTrap(X11Connection& connection);
    ~XErrorTrap();
    XErrorTrap(const XErrorTrap&) = delete;
    XErrorTrap& operator=(const XErrorTrap&) = delete;

    /// Waits for the server; whether everything since the trap was set went through.
    [[nodiscard]] bool allWentWell();
    /// The first error, in words; empty when there was none.
    [[nodiscard]] std::string reason() const;

private:
    struct Handlers;

    X11Connection& connection_;
    XErrorTrap* outer_;
    int errorCode_ = 0;
};

}  // namespace stagehopper::linux_port
