#pragma once

#include "platform/Outcome.h"

namespace stagehopper::linux_port {

class X11Connection;

/// The master devices that matter to us, by their numbers; 0 where there is none.
struct MasterDevices {
    int pointer = 0;
    int keyboard = 0;
    int usersKeyboard = 0;

    [[nodiscard]] bool areComplete() const { return pointer != 0 && keyboard != 0; }
    bool operator==(const MasterDevices&) const = default;
};

/// Whether this server can have a second pair of master devices.
platform::Outcome supportsMasterDevices(X11Connection& connection);
/// Our pair, if it is there (after a crash it still is), and the user's keyboard. This and the
/// following run inside an `XErrorTrap`. Main thread only.
MasterDevices findMasterDevices(X11Connection& connection);
platform::Outcome makeMasterDevices(X11Connection& connection);
void removeMasterDevices(X11Connection& connection, const MasterDevices& devices);
/// Takes our pointer for this connection alone: its events reach no program, and it has no cursor.
/// Refused while another connection holds it.
platform::Outcome holdPointer(X11Connection& connection, const MasterDevices& devices);

}  // namespace stagehopper::linux_port
