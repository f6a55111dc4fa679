#include "ports/linux/x11/X11Property.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <cstring>

#include "ports/linux/glib/GlibPointers.h"
#include "ports/linux/x11/X11Connection.h"
#include "ports/linux/x11/XPointer.h"

namespace stagehopper::linux_port {

namespace {

struct RawProperty {
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    XPointer<unsigned char> data;
};

RawProperty read(Display* display, WindowId window, Atom name, long length) {
    RawProperty property;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    const int status =
        XGetWindowProperty(display, window, name, 0, length, False, AnyPropertyType, &property.type,
                           &property.format, &property.count, &left, &data);
    property.data.reset(data);
    if (status != Success || data == nullptr) property.count = 0;
    return property;
}

}  // namespace

std::string validUtf8(const std::string& bytes) {
    const TextPointer text(g_utf8_make_valid(bytes.data(), static_cast<gssize>(bytes.size())));
    return text.get();
}

Atom X11Property::atom(const char* name) const {
    // Xlib caches atoms: one round trip for each name and connection.
    return XInternAtom(connection_.display(), name, False);
}

std::vector<unsigned long> X11Property::numbers(WindowId window, const char* name) const {
    const auto property = read(connection_.display(), window, atom(name), maxPropertyLength);
    std::vector<unsigned long> numbers;
    if (property.format != 32 || property.count == 0) return numbers;
    // Xlib returns 32-bit items as longs.
    numbers.resize(property.count);
    std::memcpy(numbers.data(), property.data.get(), property.count * sizeof(unsigned long));
    return numbers;
}

std::string X11Property::bytes(WindowId window, const char* name) const {
    const auto property = read(connection_.display(), window, atom(name), maxPropertyLength);
    if (property.format != 8 || property.count == 0) return {};
    std::string bytes(property.count, '\0');
    std::memcpy(bytes.data(), property.data.get(), property.count);
    return bytes;
}

bool X11Property::exists(WindowId window, const char* name) const {
    return read(connection_.display(), window, atom(name), 0).type != 0;
}

}  // namespace stagehopper::linux_port
