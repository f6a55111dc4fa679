#pragma once

#include <string>

// Xlib's own name for its display; we do not include its header because it defines macros such as
// None, Bool and Status.
struct _XDisplay;

namespace stagehopper::linux_port {

/// One connection to the X server. Not open without a server. Main thread only.
///
/// Use it only in the scope of an `XErrorTrap`: without one, Xlib ends the program on errors.
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

/// Collects the X errors of one connection during its lifetime, because windows may vanish between
/// any two calls. Errors of other connections, such as GDK's, go to the previous handler. The loss
/// of the connection is noted in it and does not end the program. Main thread only; traps may nest.
class XErrorTrap {
public:
    explicit XErrorTrap(X11Connection& connection);
    ~XErrorTrap();
    XErrorTrap(const XErrorTrap&) = delete;
    XErrorTrap& operator=(const XErrorTrap&) = delete;

    /// Waits for the server. True if no request has failed since the trap was set.
    [[nodiscard]] bool succeeded();
    /// The text of the first error; empty without an error.
    [[nodiscard]] std::string reason() const;

private:
    struct Handlers;

    X11Connection& connection_;
    XErrorTrap* outer_;
    int errorCode_ = 0;
};

}  // namespace stagehopper::linux_port
