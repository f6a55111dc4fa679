#pragma once

#include <string>

// Xlib's own name for its display; its header is kept out of ours because it defines macros such
// as None, Bool and Status.
struct _XDisplay;

namespace stagehopper::linux_port {

/// One connection to the X server, or none where there is no server. Main thread only.
///
/// Every use stands in the scope of an `XErrorTrap`: without one, Xlib ends the program on errors.
class X11Connection {
public:
    X11Connection();
    ~X11Connection();
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;

    /// False when there is no server, and from the moment the connection is lost.
    [[nodiscard]] bool isOpen() const { return display_ != nullptr && !lost_; }
    [[nodiscard]] _XDisplay* display() const { return display_; }
    [[nodiscard]] unsigned long rootWindow() const;
    /// 0 for the root window and for a window that is gone.
    [[nodiscard]] unsigned long parentOf(unsigned long window) const;
    void noteLost() { lost_ = true; }

private:
    _XDisplay* display_;
    bool lost_ = false;
};

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
    [[nodiscard]] bool succeeded();
    /// The first error, in words; empty when there was none.
    [[nodiscard]] std::string reason() const;

private:
    struct Handlers;

    X11Connection& connection_;
    XErrorTrap* outer_;
    int errorCode_ = 0;
};

}  // namespace stagehopper::linux_port
