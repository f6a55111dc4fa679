#include <string>

#include "app/Utf8.h"
#include "ports/macos/cocoa/NSString.h"
#include "ports/simulated/SimulatedText.h"
#include "tests/macos/recording/Definitions.h"
#include "tests/macos/recording/Foundation.h"
#include "tests/macos/recording/FoundationStates.h"
#include "tests/macos/recording/SharedInstances.h"

namespace stagehopper::recording {

namespace {

Value initWithBytes(Call& call) {
    const auto* bytes = static_cast<const char*>(call.argument<const void*>(0));
    const std::string text(bytes, call.argument<unsigned long>(1));
    if (call.argument<unsigned long>(2) != cocoa::NSUTF8StringEncoding) {
        noteProblem("a string is made of bytes in an encoding that nobody here knows");
        return {};
    }
    if (!isValidUtf8(text)) return {};
    call.state<StringState>().utf8 = text;
    return call.receiver();
}

Value utf8String(Call& call) {
    return call.state<StringState>().utf8.c_str();
}

Value lengthOfBytes(Call& call) {
    return static_cast<unsigned long>(call.state<StringState>().utf8.size());
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

Value isEqualToString(Call& call) {
    const auto other = call.argument<cocoa::id>(0);
    return isKindOf(other, "NSString") && textOf(other) == call.state<StringState>().utf8;
}

}  // namespace

void defineStrings() {
    define("NSString", MessageKind::instance, "initWithBytes:length:encoding:", initWithBytes);
    define("NSString", MessageKind::instance, "UTF8String", utf8String);
    define("NSString", MessageKind::instance, "lengthOfBytesUsingEncoding:", lengthOfBytes);
    define("NSString", MessageKind::instance, "stringByFoldingWithOptions:locale:", folded);
    define("NSString", MessageKind::instance, "lowercaseStringWithLocale:", lowercased);
    define("NSString", MessageKind::instance, "isEqualToString:", isEqualToString);
    describeAs("NSString", [](cocoa::id string) { return "\"" + textOf(string) + "\""; });
    keepOutOfJournal("NSString");
    defineShared("NSLocale", "currentLocale");
    keepOutOfJournal("NSLocale");
}

}  // namespace stagehopper::recording
