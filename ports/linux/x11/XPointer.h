#pragma once

#include <X11/Xlib.h>

#include <memory>

namespace stagehopper::linux_port {

struct XFreeMemory {
    void operator()(void* memory) const { XFree(memory); }
};

/// Owns memory that Xlib has allocated. Only for source files: Xlib defines macros such as None.
template <typename T>
using XPointer = std::unique_ptr<T, XFreeMemory>;

}  // namespace stagehopper::linux_port
