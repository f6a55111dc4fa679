#include "tests/macos/recording/runtime/Classes.h"

#include <algorithm>
#include <array>
#include <utility>

#include "tests/macos/facts/Facts.h"

namespace stagehopper::recording::classes {

namespace {

using Table = std::map<std::string, std::unique_ptr<objc_class>, std::less<>>;

Table& table() {
    // Never unmade: whatever ends with the program may still ask.
    static auto* const all = new Table;
    return *all;
}

}  // namespace

cocoa::Class add(std::unique_ptr<objc_class> made) {
    auto* added = made.get();
    table()[made->name] = std::move(made);
    return added;
}

cocoa::Class named(std::string_view name) {
    if (const auto found = table().find(name); found != table().end()) return found->second.get();
    const auto* fact = macos_facts::classNamed(name);
    if (fact == nullptr) return nullptr;
    auto made = std::make_unique<objc_class>();
    made->name = name;
    if (!fact->superclass.empty()) made->superclass = named(fact->superclass);
    return add(std::move(made));
}

cocoa::Class asClass(cocoa::id object) {
    for (const auto& [name, each] : table()) {
        if (reinterpret_cast<cocoa::id>(each.get()) == object) return each.get();
    }
    return nullptr;
}

bool inherits(cocoa::Class from, std::string_view name) {
    for (; from != nullptr; from = from->superclass) {
        if (from->name == name) return true;
    }
    return false;
}

const Method* methodOf(cocoa::Class ofClass, std::string_view selector) {
    for (; ofClass != nullptr; ofClass = ofClass->superclass) {
        const auto found = ofClass->methods.find(selector);
        if (found != ofClass->methods.end()) return &found->second;
    }
    return nullptr;
}

const macos_facts::MethodFact* factFor(cocoa::Class ofClass, macos_facts::Kind kind,
                                       std::string_view selector) {
    while (ofClass != nullptr && ofClass->ours) ofClass = ofClass->superclass;
    return ofClass == nullptr ? nullptr : macos_facts::factFor(ofClass->name, kind, selector);
}

bool isForMainThread(cocoa::Class ofClass) {
    // Apple's "Thread Safety Summary" and the classes' own pages let these be used anywhere.
    static constexpr std::array<std::string_view, 3> anyThread{"NSColor", "NSRunningApplication",
                                                               "NSWorkspace"};
    while (ofClass != nullptr && ofClass->ours) ofClass = ofClass->superclass;
    if (ofClass == nullptr) return false;
    const auto* fact = macos_facts::classNamed(ofClass->name);
    return fact != nullptr &&
           (fact->library == macos_facts::Library::appKit ||
            fact->library == macos_facts::Library::webKit) &&
           std::ranges::find(anyThread, fact->name) == anyThread.end();
}

void forgetStates() {
    for (auto& [name, each] : table()) {
        each->objects = 0;
        // Destroyed state may look up classes.
        const auto gone = std::exchange(each->state, {});
    }
}

}  // namespace stagehopper::recording::classes
