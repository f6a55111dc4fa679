#pragma once

#include "platform/Outcome.h"

namespace stagehopper::linux_port {

class X11Connection;

/// The ids of our pair of master devices and of the user's keyboard; 0 means absent.
struct MasterDevices {
    int pointer = 0;
    int keyboard = 0;
    int usersKeyboard = 0;

    [[nodiscard]] bool areComplete() const { return pointer != 0 && keyboard != 0; }
    bool operator==(const MasterDevices&) const = default;
};

/// Whether this server supports a second pair of master devices.
platform::Outcome supportsMasterDevices(X11Connection& connection);
/// Our pair, if it exists (it survives a crash), and the user's keyboard. This and the following
/// run inside an `XErrorTrap`. Main thread only.
MasterDevices findMasterDevices(X11Connection& connection);
platform::Outcome makeMasterDevices(X11Connection& connection);
void removeMasterDevices(X11Connection& connection, const MasterDevices& devices);
/// Grabs our pointer for this connection: its events reach no program, and it has no cursor.
/// Refused while another connection holds the grab.
platform::Outcome holdPointer(X11Connection& connection, const MasterDevices& devices);

}  // namespace stagehopper::linux_port
