#include <string>

#include "ports/macos/cocoa/foundation/NSString.h"
#include "ports/simulated/SimulatedText.h"
#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/foundation/FoundationStates.h"
#include "tests/macos/recording/foundation/SharedInstances.h"
#include "tests/macos/recording/runtime/Definitions.h"
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

Value length(Call& call) {
    const auto& string = call.state<StringState>();
    if (string.notConvertible) {
        return static_cast<unsigned long>(string.notConvertible->size());
    }
    // One unit for each character, two for those that take four bytes.
    unsigned long units = 0;
    for (const char byte : string.utf8) {
        const auto bits = static_cast<unsigned char>(byte);
        if ((bits & 0xC0U) != 0x80U) units += bits >= 0xF0U ? 2 : 1;
    }
    return units;
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

/// As the user's language has it.
Value lowercasedForUser(Call& call) {
    if (!World::current().systemInfo.userIsTurkish) return lowercased(call);
    std::string dotless;
    for (const char letter : call.state<StringState>().utf8) {
        if (letter == 'I') {
            dotless += "ı";
        } else {
            dotless += letter;
        }
    }
    return makeString(call, simulated::SimulatedText().lowercased(dotless));
}

}  // namespace

void defineStrings() {
    define("NSString", MessageKind::instance, "initWithBytes:length:encoding:", initWithBytes);
    define("NSString", MessageKind::instance, "UTF8String", utf8String);
    define("NSString", MessageKind::instance, "lengthOfBytesUsingEncoding:", lengthOfBytes);
    define("NSString", MessageKind::instance, "length", length);
    define("NSString", MessageKind::instance, "characterAtIndex:", characterAtIndex);
    define("NSString", MessageKind::instance, "stringByFoldingWithOptions:locale:", folded);
    define("NSString", MessageKind::instance, "lowercaseString", lowercased);
    define("NSString", MessageKind::instance, "lowercaseStringWithLocale:", lowercasedForUser);
    describeAs("NSString", [](cocoa::id string) { return "\"" + textOf(string) + "\""; });
    keepOutOfJournal("NSString");
    defineShared("NSLocale", "currentLocale");
    keepOutOfJournal("NSLocale");
}

}  // namespace stagehopper::recording
