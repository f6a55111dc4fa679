#include "ports/linux/desktop/MasterDevices.h"

#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>
#include <X11/extensions/XTest.h>

#include <array>
#include <memory>
#include <string_view>

#include "ports/linux/desktop/X11Connection.h"
#include "ports/linux/desktop/XErrorTrap.h"

namespace stagehopper::linux_port {

namespace {

// The server adds " pointer" and " keyboard".
constexpr const char* seatName = "Stagehopper";
constexpr std::string_view pointerName = "Stagehopper pointer";
constexpr std::string_view keyboardName = "Stagehopper keyboard";

struct DevicesFree {
    void operator()(XIDeviceInfo* devices) const { XIFreeDeviceInfo(devices); }
};

}  // namespace

std::string obstacleToMasterDevices(X11Connection& connection) {
    if (!connection.isOpen()) return "no X display";
    const XErrorTrap trap(connection);
    int opcode = 0;
    int event = 0;
    int error = 0;
    if (XQueryExtension(connection.display(), "XInputExtension", &opcode, &event, &error) == 0) {
        return "the X server has no input extension";
    }
    int major = 2;
    int minor = 0;
    if (XIQueryVersion(connection.display(), &major, &minor) != Success || major < 2) {
        return "the X server has no second keyboards";
    }
    if (XTestQueryExtension(connection.display(), &event, &error, &major, &minor) == 0) {
        return "the X server has no test extension";
    }
    return {};
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

void makeMasterDevices(X11Connection& connection) {
    std::string name(seatName);
    XIAnyHierarchyChangeInfo change{};
    change.add.type = XIAddMaster;
    change.add.name = name.data();
    // Without core events many programs never see the keys.
    change.add.send_core = True;
    change.add.enable = True;
    XIChangeHierarchy(connection.display(), &change, 1);
    XSync(connection.display(), False);
}

void removeMasterDevices(X11Connection& connection, const MasterDevices& devices) {
    XIAnyHierarchyChangeInfo change{};
    change.remove.type = XIRemoveMaster;
    change.remove.deviceid = devices.pointer;
    change.remove.return_mode = XIFloating;
    XIChangeHierarchy(connection.display(), &change, 1);
}

void silencePointer(X11Connection& connection, const MasterDevices& devices) {
    auto* display = connection.display();
    const char nothing = 0;
    XColor colour{};
    const auto root = connection.rootWindow();
    const auto bitmap = XCreateBitmapFromData(display, root, &nothing, 1, 1);
    const auto cursor = XCreatePixmapCursor(display, bitmap, bitmap, &colour, &colour, 0, 0);
    std::array<unsigned char, XIMaskLen(XI_LASTEVENT)> bits{};
    XIEventMask mask{devices.pointer, static_cast<int>(bits.size()), bits.data()};
    XIGrabDevice(display, devices.pointer, root, CurrentTime, cursor, XIGrabModeAsync,
                 XIGrabModeAsync, False, &mask);
    XFreeCursor(display, cursor);
    XFreePixmap(display, bitmap);
}

}  // namespace stagehopper::linux_port
