#include <nlohmann/json.hpp>
#include <utility>

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/foundation/FoundationStates.h"
#include "tests/macos/recording/runtime/Definitions.h"

namespace stagehopper::recording {

namespace {

/// All digits of a decoded number.
struct DecodedNumber {
    std::string text;
};

Retained objectFor(const nlohmann::json& json) {
    if (json.is_null()) return makeObject("NSNull");
    if (json.is_boolean()) return makeTruth(json.get<bool>());
    if (json.is_string()) return makeString(json.get<std::string>());
    if (json.is_number()) {
        auto number = makeObject("NSNumber");
        stateOf<NumberState>(number.get()).value = json.get<double>();
        stateOf<DecodedNumber>(number.get()).text = json.dump();
        return number;
    }
    if (json.is_array()) {
        std::vector<Retained> elements;
        for (const auto& element : json) elements.push_back(objectFor(element));
        return makeArray(elements);
    }
    auto dictionary = makeObject("NSDictionary");
    auto& entries = stateOf<DictionaryState>(dictionary.get()).entries;
    for (const auto& [name, value] : json.items()) {
        entries.emplace_back(makeString(name), objectFor(value));
    }
    return dictionary;
}

cocoa::id jsonObjectWithData(Call& call) {
    const auto json = nlohmann::json::parse(stateOf<DataState>(call.argument<cocoa::id>(0)).bytes,
                                            nullptr, false);
    if (!json.is_structured()) return nullptr;
    return leaveToPool(objectFor(json));
}

}  // namespace

void defineJson() {
    MessagesOf("NSData").onClass("dataWithBytes:length:", [](Call& call) {
        const auto* bytes = static_cast<const char*>(call.argument<const void*>(0));
        return call.made(makeData(std::string(bytes, call.argument<unsigned long>(1))));
    });
    MessagesOf("NSJSONSerialization")
        .onClass("JSONObjectWithData:options:error:", jsonObjectWithData);
    MessagesOf("NSNumber")
        .on("doubleValue", [](Call& call) { return call.state<NumberState>().value; })
        .on("stringValue",
            [](Call& call) { return makeString(call, call.state<DecodedNumber>().text); });
}

}  // namespace stagehopper::recording
