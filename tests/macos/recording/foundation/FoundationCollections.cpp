#include <algorithm>
#include <string>

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/foundation/FoundationStates.h"

namespace stagehopper::recording {

namespace {

using Objects = const cocoa::id*;

/// Nil in a collection is an exception on the real system.
Retained element(Objects objects, unsigned long index, const char* collection) {
    if (objects[index] == nullptr) noteProblem(std::string("nil is put into an ") + collection);
    return Retained(objects[index]);
}

Value arrayWithObjects(Call& call) {
    const auto objects = call.argument<Objects>(0);
    std::vector<Retained> elements;
    for (unsigned long i = 0; i < call.argument<unsigned long>(1); ++i) {
        elements.push_back(element(objects, i, "NSArray"));
    }
    return makeArray(call, elements);
}

Value objectAtIndex(Call& call) {
    const auto& elements = call.state<ArrayState>().elements;
    const auto index = call.argument<unsigned long>(0);
    if (index >= elements.size()) {
        noteProblem("an NSArray is asked for an element behind its end");
        return cocoa::id{};
    }
    return elements[index].get();
}

Value dictionaryWithObjects(Call& call) {
    const auto values = call.argument<Objects>(0);
    const auto keys = call.argument<Objects>(1);
    const auto made = call.make("NSDictionary");
    auto& entries = stateOf<DictionaryState>(made).entries;
    for (unsigned long i = 0; i < call.argument<unsigned long>(2); ++i) {
        entries.emplace_back(element(keys, i, "NSDictionary"), element(values, i, "NSDictionary"));
    }
    return made;
}

Value allKeys(Call& call) {
    std::vector<Retained> keys;
    for (const auto& entry : call.state<DictionaryState>().entries) keys.push_back(entry.first);
    return makeArray(call, keys);
}

Value objectForKey(Call& call) {
    auto* const key = call.argument<cocoa::id>(0);
    // Usually one of the dictionary's own keys: to compare texts takes long in a large one.
    for (const auto& entry : call.state<DictionaryState>().entries) {
        if (entry.first.get() == key) return entry.second.get();
    }
    return valueUnder(call.receiver(), textOf(key));
}

// Every message to a collection is described, so the contents of a large or nested one are not.
constexpr std::size_t tooManyToDescribe = 32;

std::string describeElement(cocoa::id element) {
    const auto name = classNameOf(element);
    return name == "NSArray" || name == "NSDictionary" ? "<" + name + ">" : describe(element);
}

std::string numberOfElements(std::size_t count) {
    return std::to_string(count) + " elements";
}

std::string describeArray(cocoa::id array) {
    const auto& elements = stateOf<ArrayState>(array).elements;
    if (elements.size() >= tooManyToDescribe) return "(" + numberOfElements(elements.size()) + ")";
    std::string line;
    for (const auto element : elementsOf(array)) {
        line += (line.empty() ? "" : ", ") + describeElement(element);
    }
    return "(" + line + ")";
}

std::string describeDictionary(cocoa::id dictionary) {
    const auto& entries = stateOf<DictionaryState>(dictionary).entries;
    if (entries.size() >= tooManyToDescribe) return "{" + numberOfElements(entries.size()) + "}";
    std::string line;
    for (const auto& [key, value] : entries) {
        line +=
            (line.empty() ? "" : ", ") + describe(key.get()) + ": " + describeElement(value.get());
    }
    return "{" + line + "}";
}

}  // namespace

void defineCollections() {
    MessagesOf("NSArray")
        .onClass("arrayWithObjects:count:", arrayWithObjects)
        .on("count", [](Call& call) { return call.state<ArrayState>().elements.size(); })
        .on("objectAtIndex:", objectAtIndex)
        .describedBy(describeArray)
        .notInJournal();
    MessagesOf("NSDictionary")
        .onClass("dictionaryWithObjects:forKeys:count:", dictionaryWithObjects)
        .on("allKeys", allKeys)
        .on("objectForKey:", objectForKey)
        .describedBy(describeDictionary)
        .notInJournal();
}

}  // namespace stagehopper::recording
