#pragma once

#include <X11/Xlib.h>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace stagehopper::desktop {

/// A connection to the X server on which an error is an answer instead of the program's end.
/// One thread.
class XDisplay {
public:
    /// Throws DesktopError.
    explicit XDisplay(const std::string& name);

    [[nodiscard]] Display* get() const { return display_.get(); }
    [[nodiscard]] Window root() const { return DefaultRootWindow(display_.get()); }
    [[nodiscard]] Atom atom(const char* name) const;

    /// Runs requests and returns whether the server accepted all of them.
    bool accepts(const std::function<void()>& requests) const;

    /// A property that is a list of 32-bit values; empty when it is missing.
    [[nodiscard]] std::vector<unsigned long> numbers(Window window, const char* property) const;
    [[nodiscard]] std::string text(Window window, const char* property) const;
    /// The server's present time.
    [[nodiscard]] Time time() const;
    /// Sends a window management request about `window` to the window manager, as a user's tool.
    void askWindowManager(Window window, const char* message, std::array<long, 5> data) const;

private:
    struct Close {
        void operator()(Display* display) const { XCloseDisplay(display); }
    };
    struct FreedByX {
        void operator()(void* memory) const { XFree(memory); }
    };
    struct Property {
        std::unique_ptr<unsigned char, FreedByX> data;
        unsigned long count = 0;
    };

    /// Empty when the window has no such property with values of `format` bits.
    [[nodiscard]] Property read(Window window, const char* name, int format) const;

    std::unique_ptr<Display, Close> display_;
};

}  // namespace stagehopper::desktop
