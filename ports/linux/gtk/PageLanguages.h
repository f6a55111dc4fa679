#pragma once

namespace stagehopper::linux_port {

/// Tells all pages the languages that the user has chosen, best first. By itself WebKitGTK knows
/// only a locale whose data are installed, and says "c" without one.
void tellPagesTheUsersLanguages();

}  // namespace stagehopper::linux_port
