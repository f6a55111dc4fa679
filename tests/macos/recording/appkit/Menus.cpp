#include "tests/macos/recording/appkit/Menus.h"

#include <string>

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/foundation/SharedInstances.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Callbacks.h"
#include "tests/macos/recording/runtime/Classes.h"
#include "tests/macos/recording/runtime/Definitions.h"

namespace stagehopper::recording {

namespace {

struct MenuState {
    std::vector<Retained> items;
};

struct MenuItemState {
    Retained title;
    Retained keyEquivalent;
    cocoa::SEL action = nullptr;
    bool separator = false;
    bool inMenu = false;
};

Value initMenu(Call& call) {
    setProperty(call.receiver(), "title", call.value(0));
    return call.receiver();
}

Value addItem(Call& call) {
    const auto item = call.argument<cocoa::id>(0);
    if (stateOf<MenuItemState>(item).inMenu) noteProblem(describe(item) + " is put into two menus");
    stateOf<MenuItemState>(item).inMenu = true;
    call.state<MenuState>().items.emplace_back(item);
    return {};
}

Value initItem(Call& call) {
    for (const std::size_t text : {0U, 2U}) {
        if (call.argument<cocoa::id>(text) == nullptr) noteProblem("an NSMenuItem of nil");
    }
    call.state<MenuItemState>() = {.title = Retained(call.argument<cocoa::id>(0)),
                                   .keyEquivalent = Retained(call.argument<cocoa::id>(2)),
                                   .action = call.argument<cocoa::SEL>(1)};
    return call.receiver();
}

Value separatorItem(Call& call) {
    const auto item = call.make("NSMenuItem");
    stateOf<MenuItemState>(item).separator = true;
    return item;
}

cocoa::id submenuOf(cocoa::id item) {
    return property(item, "submenu").object();
}

std::string lineOf(cocoa::id item) {
    const auto& state = stateOf<MenuItemState>(item);
    if (state.separator) return "---";
    if (const auto submenu = submenuOf(item)) return textOf(property(submenu, "title").object());
    std::string line = textOf(state.title.get());
    const auto key = textOf(state.keyEquivalent.get());
    if (!key.empty()) line += " [" + key + "]";
    if (state.action != nullptr) line += " " + state.action->name;
    return line;
}

void addLines(cocoa::id menu, const std::string& indent, std::vector<std::string>& lines) {
    for (const auto& item : stateOf<MenuState>(menu).items) {
        lines.push_back(indent + lineOf(item.get()));
        if (const auto submenu = submenuOf(item.get())) addLines(submenu, indent + "  ", lines);
    }
}

}  // namespace

std::vector<std::string> menuLines(cocoa::id menu) {
    std::vector<std::string> lines;
    if (menu != nullptr) addLines(menu, "", lines);
    return lines;
}

cocoa::id findMenuItem(cocoa::id menu, std::string_view title) {
    if (menu == nullptr) return nullptr;
    for (const auto& item : stateOf<MenuState>(menu).items) {
        if (textOf(stateOf<MenuItemState>(item.get()).title.get()) == title) return item.get();
        if (const auto found = findMenuItem(submenuOf(item.get()), title)) return found;
    }
    return nullptr;
}

std::string performMenuItem(cocoa::id item) {
    const auto action = stateOf<MenuItemState>(item).action;
    if (action == nullptr) return {};
    if (const auto target = property(item, "target").object()) {
        sendToPort(target, action->name, item);
        return {};
    }
    // The application is last in the chain.
    const auto application = classes::named("NSApplication");
    if (classes::factFor(application, macos_facts::Kind::instance, action->name) == nullptr) {
        return action->name;
    }
    answer(sharedInstance("NSApplication"), action->name, {item});
    return {};
}

void defineMenus() {
    define("NSMenu", MessageKind::instance, "initWithTitle:", initMenu);
    define("NSMenu", MessageKind::instance, "addItem:", addItem);
    define("NSMenuItem", MessageKind::instance, "initWithTitle:action:keyEquivalent:", initItem);
    define("NSMenuItem", MessageKind::classLevel, "separatorItem", separatorItem);
}

}  // namespace stagehopper::recording
