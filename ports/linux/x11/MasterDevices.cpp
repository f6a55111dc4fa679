#include "ports/linux/x11/MasterDevices.h"

#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>
#include <X11/extensions/XTest.h>

#include <array>
#include <memory>
#include <string_view>

#include "ports/linux/x11/X11Connection.h"

namespace stagehopper::linux_port {

using platform::Outcome;

namespace {

// The server adds " pointer" and " keyboard".
constexpr const char* devicePairName = "Stagehopper";
constexpr std::string_view pointerName = "Stagehopper pointer";
constexpr std::string_view keyboardName = "Stagehopper keyboard";

struct DevicesFree {
    void operator()(XIDeviceInfo* devices) const { XIFreeDeviceInfo(devices); }
};

Cursor makeEmptyCursor(Display* display, Window root) {
    const char nothing = 0;
    XColor color{};
    const auto bitmap = XCreateBitmapFromData(display, root, &nothing, 1, 1);
    const auto cursor = XCreatePixmapCursor(display, bitmap, bitmap, &color, &color, 0, 0);
    XFreePixmap(display, bitmap);
    return cursor;
}

/// Puts the pointer into the lower right corner, but off the edges, to which some desktops react.
void park(Display* display, Window root, int pointer) {
    // Xlib's size of the screen is the size at connection time.
    XWindowAttributes screen{};
    XGetWindowAttributes(display, root, &screen);
    constexpr int besideTheEdge = 2;
    XIWarpPointer(display, pointer, None, root, 0, 0, 0, 0, screen.width - besideTheEdge,
                  screen.height - besideTheEdge);
}

}  // namespace

Outcome supportsMasterDevices(X11Connection& connection) {
    if (!connection.isOpen()) return Outcome::refused("no X display");
    const XErrorTrap trap(connection);
    int opcode = 0;
    int event = 0;
    int error = 0;
    if (XQueryExtension(connection.display(), "XInputExtension", &opcode, &event, &error) == 0) {
        return Outcome::refused("the X server has no input extension");
    }
    int major = 2;
    int minor = 0;
    if (XIQueryVersion(connection.display(), &major, &minor) != Success || major < 2) {
        return Outcome::refused("the X server has no second keyboards");
    }
    if (XTestQueryExtension(connection.display(), &event, &error, &major, &minor) == 0) {
        return Outcome::refused("the X server has no test extension");
    }
    return Outcome::done();
}

MasterDevices findMasterDevices(X11Connection& connection) {
    MasterDevices found;
    int count = 0;
    const std::unique_ptr<XIDeviceInfo, DevicesFree> devices(
        XIQueryDevice(connection.display(), XIAllMasterDevices, &count));
    for (int i = 0; devices && i < count; ++i) {
        const auto& device = devices.get()[i];
        const std::string_view name = device.name;
        if (name == pointerName) {
            found.pointer = device.deviceid;
        } else if (name == keyboardName) {
            found.keyboard = device.deviceid;
        } else if (device.use == XIMasterKeyboard && found.usersKeyboard == 0) {
            found.usersKeyboard = device.deviceid;
        }
    }
    return found;
}

Outcome makeMasterDevices(X11Connection& connection) {
    XErrorTrap trap(connection);
    std::string name(devicePairName);
    XIAnyHierarchyChangeInfo change{};
    change.add.type = XIAddMaster;
    change.add.name = name.data();
    // Without core events many programs never see the keys.
    change.add.send_core = True;
    change.add.enable = True;
    XIChangeHierarchy(connection.display(), &change, 1);
    if (trap.succeeded()) return Outcome::done();
    return Outcome::refused("the X server makes no second keyboard: " + trap.reason());
}

void removeMasterDevices(X11Connection& connection, const MasterDevices& devices) {
    XIUndefineCursor(connection.display(), devices.pointer, connection.rootWindow());
    XIAnyHierarchyChangeInfo change{};
    change.remove.type = XIRemoveMaster;
    change.remove.deviceid = devices.pointer;
    change.remove.return_mode = XIFloating;
    XIChangeHierarchy(connection.display(), &change, 1);
}

Outcome holdPointer(X11Connection& connection, const MasterDevices& devices) {
    auto* display = connection.display();
    const auto root = connection.rootWindow();
    const auto cursor = makeEmptyCursor(display, root);
    std::array<unsigned char, XIMaskLen(XI_LASTEVENT)> bits{};
    XIEventMask mask{devices.pointer, static_cast<int>(bits.size()), bits.data()};
    XErrorTrap trap(connection);
    const auto status = XIGrabDevice(display, devices.pointer, root, CurrentTime, cursor,
                                     XIGrabModeAsync, XIGrabModeAsync, False, &mask);
    if (status == GrabSuccess) {
        // The grab ends with us. This cursor and the position stay and hide a pointer that we leave
        // behind.
        XIDefineCursor(display, devices.pointer, root, cursor);
        park(display, root, devices.pointer);
    }
    XFreeCursor(display, cursor);
    if (!trap.succeeded()) {
        return Outcome::refused("the second pointer cannot be held: " + trap.reason());
    }
    if (status == AlreadyGrabbed) {
        return Outcome::refused("another program has the second keyboard");
    }
    if (status != GrabSuccess) return Outcome::refused("the second pointer cannot be held now");
    return Outcome::done();
}

}  // namespace stagehopper::linux_port
