#pragma once

namespace stagehopper::linux_port {

/// Gives all pages the languages that the user has chosen, best first. WebKitGTK itself reports
/// only a locale whose data are installed, and "c" without one.
void tellPagesTheUsersLanguages();

}  // namespace stagehopper::linux_port
