#include "tests/macos/recording/runtime/BehaviorTable.h"

#include <functional>
#include <map>
#include <set>
#include <stdexcept>
#include <tuple>
#include <utility>

#include "tests/macos/facts/Facts.h"
#include "tests/macos/recording/runtime/Blocks.h"
#include "tests/macos/recording/runtime/Heap.h"
#include "tests/macos/recording/runtime/RootObject.h"

namespace stagehopper::recording {

namespace {

template <class T>
using ByClass = std::map<std::string, T, std::less<>>;

struct Table {
    std::map<std::tuple<std::string, MessageKind, std::string>, Behavior> behaviors;
    ByClass<std::function<std::string(cocoa::id)>> descriptions;
    std::set<std::string, std::less<>> quiet;
};

Table& table() {
    static auto* const all = new Table;
    return *all;
}

}  // namespace

void define(std::string_view className, MessageKind kind, std::string_view selector,
            Behavior behavior) {
    const auto factKind = kind == MessageKind::classLevel ? macos_facts::Kind::classLevel
                                                          : macos_facts::Kind::instance;
    const auto name = std::string(className) + " " + std::string(selector);
    if (macos_facts::factFor(className, factKind, selector) == nullptr) {
        throw std::logic_error("a behavior for " + name + ", which is no fact");
    }
    const auto key = std::tuple(std::string(className), kind, std::string(selector));
    if (!table().behaviors.emplace(key, std::move(behavior)).second) {
        throw std::logic_error("two behaviors for " + name);
    }
}

void keepOutOfJournal(std::string_view className) {
    table().quiet.emplace(className);
}

void describeAs(std::string_view className, std::function<std::string(cocoa::id)> description) {
    table().descriptions.insert_or_assign(std::string(className), std::move(description));
}

namespace behaviors {

const Behavior* find(cocoa::Class ofClass, MessageKind kind, const std::string& selector) {
    static const bool rootDefined = (defineRootObject(), true);
    static_cast<void>(rootDefined);
    for (auto* each = ofClass; each != nullptr; each = each->superclass) {
        const auto found = table().behaviors.find({each->name, kind, selector});
        if (found != table().behaviors.end()) return &found->second;
    }
    if (kind == MessageKind::instance) return nullptr;
    // A class object is also an instance of the root class.
    const auto found = table().behaviors.find({"NSObject", MessageKind::instance, selector});
    return found == table().behaviors.end() ? nullptr : &found->second;
}

bool isQuiet(cocoa::Class ofClass) {
    for (; ofClass != nullptr; ofClass = ofClass->superclass) {
        if (table().quiet.contains(ofClass->name)) return true;
    }
    return false;
}

}  // namespace behaviors

std::string describe(cocoa::id object) {
    if (object == nullptr) return "nil";
    if (blocks::isLive(object)) return "^block";
    if (const auto* record = heap::find(object)) {
        for (auto* each = record->itsClass; each != nullptr; each = each->superclass) {
            const auto found = table().descriptions.find(each->name);
            if (found != table().descriptions.end() && !record->raw) return found->second(object);
        }
        return heap::nameOf(*record);
    }
    if (const auto* asClass = classes::asClass(object)) return asClass->name;
    const auto freed = heap::nameOfFreed(object);
    if (!freed.empty()) return freed + ", which was freed";
    return blocks::wasFreed(object) ? "a block that was freed" : "something that is no object";
}

}  // namespace stagehopper::recording
