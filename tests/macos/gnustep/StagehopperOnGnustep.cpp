// stagehopper-on-gnustep: the program of the macOS port, run for real where there is no Mac.

#include "tests/macos/gnustep/Preparation.h"

/// The port's own `main`, which is built under this name.
int stagehopperMain();

int main() {
    stagehopper::cocoa::gnustep::prepare();
    return stagehopperMain();
}
