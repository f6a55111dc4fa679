#include <string>

#include "ports/macos/cocoa/foundation/NSString.h"
#include "ports/simulated/SimulatedText.h"
#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/foundation/FoundationStates.h"
#include "tests/macos/recording/system/World.h"
#include "text/Utf8.h"

namespace stagehopper::recording {

namespace {

Value initWithBytes(Call& call) {
    const auto* bytes = static_cast<const char*>(call.argument<const void*>(0));
    const std::string text(bytes, call.argument<unsigned long>(1));
    if (call.argument<unsigned long>(2) != cocoa::NSUTF8StringEncoding) {
        noteProblem("a string is made of bytes in an unknown encoding");
        return {};
    }
    if (!isValidUtf8(text)) return {};
    call.state<StringState>().utf8 = text;
    return call.receiver();
}

/// A conversion loses nothing, or does not take place.
Value utf8String(Call& call) {
    const auto& string = call.state<StringState>();
    return string.notConvertible ? static_cast<const char*>(nullptr) : string.utf8.c_str();
}

Value lengthOfBytes(Call& call) {
    const auto& string = call.state<StringState>();
    return string.notConvertible ? 0UL : static_cast<unsigned long>(string.utf8.size());
}

/// Asked only for a text that is not convertible.
Value length(Call& call) {
    const auto& units = call.state<StringState>().notConvertible;
    if (!units && !call.state<StringState>().utf8.empty())
        noteProblem("the units of a convertible string are counted");
    return static_cast<unsigned long>(units ? units->size() : 0);
}

Value characterAtIndex(Call& call) {
    const auto& units = call.state<StringState>().notConvertible;
    const auto index = call.argument<unsigned long>(0);
    if (!units || index >= units->size()) {
        noteProblem("a character is asked for one by one, or behind the end");
        return static_cast<unsigned short>(0);
    }
    return static_cast<unsigned short>((*units)[index]);
}

/// Follows ASCII and Latin-1 letters and combining accents; the rest stays as it is.
Value folded(Call& call) {
    using namespace cocoa;
    if (call.argument<unsigned long>(0) !=
        (NSCaseInsensitiveSearch | NSDiacriticInsensitiveSearch)) {
        noteProblem("a folding other than that of case and diacritics");
    }
    return makeString(call, simulated::SimulatedText().folded(call.state<StringState>().utf8));
}

Value lowercased(Call& call) {
    return makeString(call, simulated::SimulatedText().lowercased(call.state<StringState>().utf8));
}

/// As the user's language has it: in Turkish an I without a dot.
cocoa::id lowercasedForUser(Call& call) {
    auto text = call.state<StringState>().utf8;
    for (auto at = text.find('I'); World::current().systemInfo.userIsTurkish && at < text.size();
         at = text.find('I', at)) {
        text.replace(at, 1, "ı");
    }
    return makeString(call, simulated::SimulatedText().lowercased(text));
}

}  // namespace

void defineStrings() {
    MessagesOf("NSString")
        .on("initWithBytes:length:encoding:", initWithBytes)
        .on("UTF8String", utf8String)
        .on("lengthOfBytesUsingEncoding:", lengthOfBytes)
        .on("length", length)
        .on("characterAtIndex:", characterAtIndex)
        .on("stringByFoldingWithOptions:locale:", folded)
        .on("lowercaseString", lowercased)
        .on("lowercaseStringWithLocale:", lowercasedForUser)
        .describedBy([](cocoa::id string) { return "\"" + textOf(string) + "\""; })
        .notInJournal();
    MessagesOf("NSLocale").shared("currentLocale").notInJournal();
}

}  // namespace stagehopper::recording
