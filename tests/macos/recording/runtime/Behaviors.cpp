#include "tests/macos/recording/runtime/Behaviors.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <functional>
#include <map>
#include <set>
#include <stdexcept>
#include <tuple>
#include <utility>

#include "tests/macos/facts/Facts.h"
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

std::map<std::pair<std::string, std::string>, Retained>& instances() {
    static std::map<std::pair<std::string, std::string>, Retained> made;
    return made;
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

MessagesOf& MessagesOf::shared(std::string_view selector) {
    return onClass(selector, [name = className_](Call&) { return sharedInstance(name); });
}

cocoa::id sharedInstance(std::string_view className, std::string_view which) {
    auto& instance = instances()[{std::string(className), std::string(which)}];
    if (!instance) instance = makeObject(className);
    return instance.get();
}

void forgetSharedInstances() {
    instances().clear();
}

std::shared_ptr<void>& detail::slot(cocoa::id object, std::type_index type) {
    if (auto* record = heap::find(object)) return record->state[type];
    if (auto* found = classes::asClass(object)) return found->state[type];
    throw std::logic_error("the state of " + describe(object));
}

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

/// The messages of every object.
void defineRootObject() {
    const auto receiver = [](Call& call) { return call.receiver(); };
    MessagesOf("NSObject")
        .onClass("alloc",
                 [](Call& call) {
                     auto* made = call.make(call.className());
                     heap::find(made)->raw = true;
                     return made;
                 })
        .on("init", receiver)
        // Correct for immutable classes.
        .on("copy", receiver)
        .on("isKindOfClass:",
            [](Call& call) {
                const auto* other = call.argument<cocoa::Class>(0);
                return other != nullptr && isKindOf(call.receiver(), other->name);
            })
        .on("respondsToSelector:", [](Call& call) {
            const auto* selector = call.argument<cocoa::SEL>(0);
            return selector != nullptr && responds(call.receiver(), selector->name);
        });
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

namespace {

/// The properties that AppKit and WebKit declare weak.
constexpr std::array<std::string_view, 3> weakNames{"delegate", "target", "navigationDelegate"};

struct Property {
    /// An object's pointer may be gone.
    Value value;
    Retained kept;
    Weak weak;
    bool isWeak = false;
};

struct Properties {
    std::map<std::string, Property, std::less<>> byName;
};

}  // namespace

Value property(cocoa::id object, std::string_view name) {
    const auto& all = stateOf<Properties>(object).byName;
    const auto found = all.find(name);
    if (found == all.end()) return {};
    const auto& [value, kept, weak, isWeak] = found->second;
    if (!value.isObject()) return value;
    return isWeak ? weak.get() : kept.get();
}

void setProperty(cocoa::id object, std::string_view name, Value value) {
    Property made;
    made.value = value;
    made.isWeak = std::ranges::find(weakNames, name) != weakNames.end();
    if (made.isWeak) {
        made.weak = Weak(value.object());
    } else {
        made.kept = Retained(value.object());
    }
    // The old value may hold the last reference to an object whose destruction reads this one.
    auto& slot = stateOf<Properties>(object).byName[std::string(name)];
    std::swap(slot, made);
}

std::string propertyOfSetter(std::string_view selector) {
    const bool isSetter = selector.size() > 4 && selector.starts_with("set") &&
                          std::ranges::count(selector, ':') == 1 && selector.ends_with(':');
    if (!isSetter) return {};
    std::string name(selector.substr(3, selector.size() - 4));
    const auto isUpper = [](char letter) {
        return std::isupper(static_cast<unsigned char>(letter)) != 0;
    };
    // `setTitle:` sets `title`, but `setURL:` sets `URL`.
    const bool isAcronym = name.size() > 1 && isUpper(name[0]) && isUpper(name[1]);
    if (!isAcronym) name[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(name[0])));
    return name;
}

bool responds(cocoa::id object, std::string_view selector) {
    if (const auto* record = heap::find(object)) {
        return classes::methodOf(record->itsClass, selector) != nullptr ||
               classes::factFor(record->itsClass, macos_facts::Kind::instance, selector) != nullptr;
    }
    auto* asClass = classes::asClass(object);
    if (object != nullptr && asClass == nullptr) {
        noteProblem("the system was to call " + describe(object));
    }
    return asClass != nullptr &&
           classes::factFor(asClass, macos_facts::Kind::classLevel, selector) != nullptr;
}

}  // namespace stagehopper::recording
