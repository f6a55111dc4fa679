#include "tests/macos/recording/appkit/Menus.h"

#include <string>

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Classes.h"

// NSMenu and NSMenuItem.

namespace stagehopper::recording {

namespace {

using Items = std::vector<Retained>;

void addItem(Call& call) {
    const auto item = call.argument<cocoa::id>(0);
    if (property(item, "inMenu").as<bool>()) noteProblem(describe(item) + " is put into two menus");
    setProperty(item, "inMenu", true);
    call.state<Items>().emplace_back(item);
}

cocoa::id initItem(Call& call) {
    const auto item = call.receiver();
    setProperty(item, "title", call.value(0));
    setProperty(item, "action", call.value(1));
    setProperty(item, "keyEquivalent", call.value(2));
    for (const auto* text : {"title", "keyEquivalent"}) {
        if (propertyObject(item, text) == nullptr) noteProblem("an NSMenuItem of nil");
    }
    return item;
}

std::string lineOf(cocoa::id item) {
    if (const auto submenu = propertyObject(item, "submenu")) {
        return textOf(propertyObject(submenu, "title"));
    }
    if (propertyObject(item, "title") == nullptr) return "---";
    auto line = textOf(propertyObject(item, "title"));
    const auto key = textOf(propertyObject(item, "keyEquivalent"));
    if (!key.empty()) line += " [" + key + "]";
    const auto* action = property(item, "action").as<cocoa::SEL>();
    return action == nullptr ? line : line + " " + action->name;
}

void addLines(cocoa::id menu, const std::string& indent, std::vector<std::string>& lines) {
    if (menu == nullptr) return;
    for (const auto& item : stateOf<Items>(menu)) {
        lines.push_back(indent + lineOf(item.get()));
        addLines(propertyObject(item.get(), "submenu"), indent + "  ", lines);
    }
}

}  // namespace

std::vector<std::string> menuLines(cocoa::id menu) {
    std::vector<std::string> lines;
    addLines(menu, "", lines);
    return lines;
}

cocoa::id findMenuItem(cocoa::id menu, std::string_view title) {
    if (menu == nullptr) return nullptr;
    for (const auto& item : stateOf<Items>(menu)) {
        if (textOf(propertyObject(item.get(), "title")) == title) return item.get();
        if (const auto found = findMenuItem(propertyObject(item.get(), "submenu"), title)) {
            return found;
        }
    }
    return nullptr;
}

void defineMenus() {
    MessagesOf("NSMenu").on("addItem:", addItem).on("initWithTitle:", [](Call& call) {
        setProperty(call.receiver(), "title", call.value(0));
        return call.receiver();
    });
    MessagesOf("NSMenuItem")
        .on("initWithTitle:action:keyEquivalent:", initItem)
        .onClass("separatorItem", [](Call& call) { return call.make("NSMenuItem"); });
}

}  // namespace stagehopper::recording
