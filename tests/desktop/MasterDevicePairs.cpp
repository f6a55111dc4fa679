#include "tests/desktop/MasterDevicePairs.h"

#include <X11/extensions/XInput2.h>

#include <memory>

namespace stagehopper::desktop {

namespace {

struct DevicesFree {
    void operator()(XIDeviceInfo* devices) const { XIFreeDeviceInfo(devices); }
};

}  // namespace

std::vector<int> morePointers(const XDisplay& display) {
    std::vector<int> found;
    int count = 0;
    const std::unique_ptr<XIDeviceInfo, DevicesFree> devices(
        XIQueryDevice(display.get(), XIAllMasterDevices, &count));
    for (int i = 0; devices && i < count; ++i) {
        const auto& device = devices.get()[i];
        if (device.use == XIMasterPointer) found.push_back(device.deviceid);
    }
    // The server's own comes first.
    if (!found.empty()) found.erase(found.begin());
    return found;
}

int exhaustMasterDevices(const XDisplay& display) {
    int made = 0;
    while (display.accepts([&] {
        std::string name = "Filler " + std::to_string(made);
        XIAnyHierarchyChangeInfo change{};
        change.add.type = XIAddMaster;
        change.add.name = name.data();
        change.add.send_core = True;
        change.add.enable = True;
        XIChangeHierarchy(display.get(), &change, 1);
    })) {
        ++made;
    }
    return made;
}

void removePointer(const XDisplay& display, int pointer) {
    display.accepts([&] {
        XIAnyHierarchyChangeInfo change{};
        change.remove.type = XIRemoveMaster;
        change.remove.deviceid = pointer;
        change.remove.return_mode = XIFloating;
        XIChangeHierarchy(display.get(), &change, 1);
    });
}

}  // namespace stagehopper::desktop
