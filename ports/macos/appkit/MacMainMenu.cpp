#include "ports/macos/appkit/MacMainMenu.h"

#include "ports/macos/cocoa/objc/MessageDispatch.h"

namespace stagehopper::macos_port {

namespace {

cocoa::SEL selectorOf(platform::MenuAction action) {
    switch (action) {
        case platform::MenuAction::orderFrontStandardAboutPanel:
            return cocoa::selector<"orderFrontStandardAboutPanel:">();
        case platform::MenuAction::terminate:
            return cocoa::selector<"terminate:">();
        case platform::MenuAction::cut:
            return cocoa::selector<"cut:">();
        case platform::MenuAction::copy:
            return cocoa::selector<"copy:">();
        case platform::MenuAction::paste:
            return cocoa::selector<"paste:">();
        case platform::MenuAction::selectAll:
            return cocoa::selector<"selectAll:">();
    }
    return nullptr;
}

void addEntry(cocoa::NSMenu menu, const platform::MenuEntry& entry) {
    if (!entry) return menu.addItem(cocoa::NSMenuItem::separatorItem());
    // No target: the action goes to the first responder.
    const auto item =
        cocoa::NSMenuItem::make(cocoa::string(entry->title), selectorOf(entry->action),
                                cocoa::string(entry->keyEquivalent));
    menu.addItem(item.get());
}

/// The item in the menu bar that holds a menu. The bar shows the menu's title, not the item's.
cocoa::Owned<cocoa::NSMenuItem> makeBarItem(const platform::Menu& menu) {
    const auto submenu = cocoa::NSMenu::make(cocoa::string(menu.title));
    for (const auto& entry : menu.entries) addEntry(submenu.get(), entry);
    auto item = cocoa::NSMenuItem::make(cocoa::string(""), nullptr, cocoa::string(""));
    item->setSubmenu(submenu.get());
    return item;
}

}  // namespace

cocoa::Owned<cocoa::NSMenu> makeMainMenu(const platform::MainMenu& menu) {
    auto bar = cocoa::NSMenu::make(cocoa::string(""));
    for (const auto& submenu : menu) bar->addItem(makeBarItem(submenu).get());
    return bar;
}

}  // namespace stagehopper::macos_port
