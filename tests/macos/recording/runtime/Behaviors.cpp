#include "tests/macos/recording/runtime/Behaviors.h"

#include <algorithm>
#include <stdexcept>

#include "tests/macos/recording/runtime/Blocks.h"
#include "tests/macos/recording/runtime/Heap.h"

namespace stagehopper::recording {

namespace {

cocoa::Class classOfObject(cocoa::id object) {
    if (const auto* record = heap::find(object)) return record->itsClass;
    return classes::asClass(object);
}

cocoa::Class required(std::string_view className) {
    if (auto* found = classes::named(className)) return found;
    throw std::logic_error("no class " + std::string(className) + " in the table of facts");
}

}  // namespace

std::string describe(cocoa::SEL selector) {
    return selector == nullptr ? "NULL" : "@selector(" + selector->name + ")";
}

Retained makeObject(std::string_view className) {
    return Retained::adopt(heap::make(required(className)));
}

cocoa::id makeConstant(std::string_view className) {
    auto* made = heap::make(required(className));
    heap::find(made)->constant = true;
    return made;
}

cocoa::id Call::make(std::string_view className) {
    return made_.emplace_back(makeObject(className)).get();
}

bool Call::hasMade(cocoa::id object) const {
    return std::ranges::any_of(made_,
                               [object](const Retained& each) { return each.get() == object; });
}

std::string Call::className() const {
    return classNameOf(receiver_);
}

std::string classNameOf(cocoa::id object) {
    const auto* found = classOfObject(object);
    return found == nullptr ? describe(object) : found->name;
}

bool isKindOf(cocoa::id object, std::string_view className) {
    const auto* record = heap::find(object);
    return record != nullptr && classes::inherits(record->itsClass, className);
}

bool isOurs(cocoa::id object) {
    const auto* found = classOfObject(object);
    return found != nullptr && found->ours;
}

bool isBlock(cocoa::id object) {
    return blocks::isLive(object);
}

cocoa::id classObject(std::string_view className) {
    return reinterpret_cast<cocoa::id>(required(className));
}

std::shared_ptr<void>& detail::slot(cocoa::id object, std::type_index type) {
    if (auto* record = heap::find(object)) return record->state[type];
    if (auto* found = classes::asClass(object)) return found->state[type];
    throw std::logic_error("the state of " + describe(object));
}

}  // namespace stagehopper::recording
