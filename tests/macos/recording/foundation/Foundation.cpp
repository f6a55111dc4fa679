#include "tests/macos/recording/foundation/Foundation.h"

#include <utility>

#include "tests/macos/recording/foundation/FoundationStates.h"
#include "tests/macos/recording/runtime/Memory.h"

namespace stagehopper::recording {

namespace {

template <class State>
State stateOr(cocoa::id object, std::string_view className) {
    return isKindOf(object, className) ? stateOf<State>(object) : State();
}

/// A new object of a class with this state.
template <class State>
Retained make(std::string_view className, State state) {
    auto made = makeObject(className);
    stateOf<State>(made.get()) = std::move(state);
    return made;
}

}  // namespace

std::string textOf(cocoa::id string) {
    return stateOr<StringState>(string, "NSString").utf8;
}

std::string addressOf(cocoa::id url) {
    return stateOr<UrlState>(url, "NSURL").address;
}

std::string pathOf(cocoa::id url) {
    return stateOr<UrlState>(url, "NSURL").path;
}

std::vector<cocoa::id> elementsOf(cocoa::id array) {
    std::vector<cocoa::id> elements;
    for (const auto& element : stateOr<ArrayState>(array, "NSArray").elements) {
        elements.push_back(element.get());
    }
    return elements;
}

std::map<std::string, std::string> textTableOf(cocoa::id dictionary) {
    std::map<std::string, std::string> table;
    for (const auto& [key, value] : stateOr<DictionaryState>(dictionary, "NSDictionary").entries) {
        table[textOf(key.get())] = textOf(value.get());
    }
    return table;
}

cocoa::id valueUnder(cocoa::id dictionary, std::string_view key) {
    for (const auto& entry : stateOr<DictionaryState>(dictionary, "NSDictionary").entries) {
        if (textOf(entry.first.get()) == key) return entry.second.get();
    }
    return nullptr;
}

bool truthOf(cocoa::id number) {
    return stateOr<NumberState>(number, "NSNumber").value != 0;
}

Retained makeString(std::string text) {
    return make("NSString", StringState{std::move(text)});
}

Retained makeStringWithoutUtf8(std::u16string units) {
    std::string shown(units.size(), '?');
    return make("NSString", StringState{std::move(shown), std::move(units)});
}

Retained makeData(std::string bytes) {
    return make("NSData", DataState{std::move(bytes)});
}

Retained makeUrl(std::string address, std::string path) {
    return make("NSURL", UrlState{std::move(address), std::move(path)});
}

Retained makeTruth(bool value) {
    return make("NSNumber", NumberState{value ? 1.0 : 0.0, true});
}

Retained makeNumber(std::int64_t value) {
    return make("NSNumber", NumberState{static_cast<double>(value), false});
}

Retained makeError(std::string localizedDescription) {
    auto made = makeObject("NSError");
    setProperty(made.get(), "localizedDescription",
                makeString(std::move(localizedDescription)).get());
    return made;
}

Retained makeArray(const std::vector<Retained>& elements) {
    return make("NSArray", ArrayState{elements});
}

cocoa::id leaveToPool(const Retained& object) {
    memory::autorelease(object, true);
    return object.get();
}

}  // namespace stagehopper::recording
