#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ports/linux/x11/TopLevelWindow.h"

namespace stagehopper::linux_port {

class X11Connection;

/// An X atom, Xlib's number for a name.
using Atom = unsigned long;

/// In units of four bytes. Longer lists and texts are cut off; no sane program has them.
inline constexpr std::uint32_t maxPropertyLength = 64 * 1024;

/// Replaces what is not UTF-8. Any thread.
std::string validUtf8(const std::string& bytes);

/// Reads window properties. Main thread only, inside an `XErrorTrap`. A window that is gone has no
/// properties.
class X11Property {
public:
    explicit X11Property(X11Connection& connection) : connection_(connection) {}

    [[nodiscard]] Atom atom(const char* name) const;
    /// A property of 32-bit numbers (windows, atoms, cardinals); empty when it is missing or of
    /// another type.
    [[nodiscard]] std::vector<unsigned long> numbers(WindowId window, const char* name) const;
    /// A property of bytes, not converted to UTF-8; empty when it is missing.
    [[nodiscard]] std::string bytes(WindowId window, const char* name) const;
    [[nodiscard]] bool exists(WindowId window, const char* name) const;

private:
    X11Connection& connection_;
};

}  // namespace stagehopper::linux_port
