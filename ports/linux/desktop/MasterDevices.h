#pragma once

#include <string>

namespace stagehopper::linux_port {

class X11Connection;

/// The master devices that matter to us, by their numbers; 0 where there is none.
struct MasterDevices {
    int pointer = 0;
    int keyboard = 0;
    int usersKeyboard = 0;

    [[nodiscard]] bool areComplete() const { return pointer != 0 && keyboard != 0; }
};

/// Why this server can have no second pair of master devices; empty when it can.
std::string obstacleToMasterDevices(X11Connection& connection);
/// Our pair, if it is there (after a crash it still is), and the user's keyboard. This and the
/// following run inside an `XErrorTrap`. Main thread only.
MasterDevices findMasterDevices(X11Connection& connection);
void makeMasterDevices(X11Connection& connection);
void removeMasterDevices(X11Connection& connection, const MasterDevices& devices);
/// Hides the cursor of our pointer, and keeps its events from everybody.
void silencePointer(X11Connection& connection, const MasterDevices& devices);

}  // namespace stagehopper::linux_port
