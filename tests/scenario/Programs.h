#pragma once

#include "ports/simulated/Desktop.h"

namespace stagehopper {

// The programs on the scenarios' desktop. The tests add windows and menus.

inline simulated::Program powerPoint(platform::Pid pid) {
    return simulated::program("com.microsoft.Powerpoint").pid(pid);
}
inline simulated::Program wps(platform::Pid pid) {
    return simulated::program("com.kingsoft.wpsoffice.mac").pid(pid);
}
inline simulated::Program keynote(platform::Pid pid) {
    return simulated::program("com.apple.iWork.Keynote").pid(pid);
}
inline simulated::Program preview(platform::Pid pid) {
    return simulated::program("com.apple.Preview").pid(pid);
}
inline simulated::Program safari(platform::Pid pid) {
    return simulated::program("com.apple.Safari").pid(pid);
}
inline simulated::Program chrome(platform::Pid pid) {
    return simulated::program("com.google.Chrome").pid(pid);
}

}  // namespace stagehopper
