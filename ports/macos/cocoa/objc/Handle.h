#pragma once

#include <cstdio>
#include <cstdlib>

#include "ports/macos/cocoa/objc/Message.h"

namespace stagehopper::cocoa {

namespace detail {

/// A class that the program needs. If it is missing, the program ends with its name instead of a
/// window that silently never appears.
inline Class requiredClass(const char* name) {
    if (Class found = objc_getClass(name)) return found;
    std::fprintf(stderr, "Stagehopper: this system has no class %s\n", name);
    std::abort();
}

}  // namespace detail

/// The class object of a handle type, by its member `className`.
template <class T>
[[nodiscard]] Class classOf() {
    static const Class found = detail::requiredClass(T::className.c_str());
    return found;
}

/// The base of every handle type: `class NSWindow : public Handle<NSWindow, NSResponder>`. Gives it
/// `send` and `sendToClass`, with which it declares its messages.
///
/// A handle type names what it makes by who owns it: `make` returns an `Owned`; a function with
/// Apple's name (`arrayWithObjects`, `pipe`) returns an object that lives as long as the current
/// pool, or as long as the process if it is shared.
template <class Self, class Base>
class Handle : public Base {
public:
    using Base::Base;

protected:
    template <FixedString name, class Signature, class... Arguments>
    auto send(Arguments... arguments) const {
        return Message<Self, MessageKind::instance, name, Signature>::send(this->pointer(),
                                                                           arguments...);
    }
    template <FixedString name, class Signature, class... Arguments>
    static auto sendToClass(Arguments... arguments) {
        // A class is an object.
        return Message<Self, MessageKind::classLevel, name, Signature>::send(
            reinterpret_cast<id>(classOf<Self>()), arguments...);
    }
    /// A new object without a state; only its initializer may use it.
    static Self allocate() { return Self(sendToClass<"alloc", Object()>().pointer()); }
};

}  // namespace stagehopper::cocoa
