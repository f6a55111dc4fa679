#pragma once

namespace stagehopper::cocoa::gnustep {

/// Apple's menu bar shows the title of each menu, and the program's name for the first; GNUstep's
/// shows the title of the item that holds the menu. Gives an item without a title its menu's title,
/// or the program's name. Once, before the menus are created.
void showMenuTitlesInMenuBar();

}  // namespace stagehopper::cocoa::gnustep
