#pragma once

namespace stagehopper::cocoa::gnustep {

/// Apple's menu bar shows the title of each menu, and the program's name for the first; GNUstep's
/// shows the title of the item on which the menu hangs. From now on an item without a title takes
/// its menu's, or the program's name. Once, before the menus are made.
void showMenuTitlesInMenuBar();

}  // namespace stagehopper::cocoa::gnustep
