#include <dlfcn.h>

#include <cstdio>
#include <string>
#include <string_view>
#include <utility>

#include "AllHeaders.h"
#include "tests/macos/darwin/RuntimeEncoding.h"
#include "tests/macos/facts/Agreement.h"
#include "tests/macos/facts/DeclaredFacts.h"
#include "tests/macos/facts/NewerMessages.h"

// Compares every fact of the table with the runtime of this Mac, and prints the differences. Exit
// status 0: nothing contradicts, and every message that the port sends is there. What the table has
// beyond these is only listed when it is absent.

extern "C" {
struct objc_method;
}

namespace stagehopper::cocoa {

struct objc_method_description {
    SEL name;
    char* types;
};

// What only this program needs of <objc/runtime.h>.
extern "C" {
objc_method* class_getInstanceMethod(Class ofClass, SEL name);
objc_method* class_getClassMethod(Class ofClass, SEL name);
Class class_getSuperclass(Class ofClass);
const char* class_getName(Class ofClass);
const char* method_getTypeEncoding(objc_method* method);
objc_method_description protocol_getMethodDescription(Protocol* protocol, SEL name, BOOL isRequired,
                                                      BOOL isInstance);
}

}  // namespace stagehopper::cocoa

namespace stagehopper::macos_facts {
namespace {

constexpr auto boolIs = cocoa::encoding<cocoa::BOOL> == "c" ? BoolIs::signedChar : BoolIs::bool8;

struct Tally {
    int agreeing = 0;
    int absent = 0;
    int contradicting = 0;
    int missing = 0;

    void absence(const char* what, std::string_view name) {
        ++absent;
        std::printf("absent: %s %.*s\n", what, static_cast<int>(name.size()), name.data());
    }
    /// The port would send it to an object that does not know it.
    void missingMessage(std::string_view name) {
        ++missing;
        std::printf("MISSING: the port sends %.*s, which this system does not have\n",
                    static_cast<int>(name.size()), name.data());
    }
    void compare(std::string_view name, std::string_view fact, std::string_view found) {
        if (fact == found || agrees(found, fact)) {
            ++agreeing;
            return;
        }
        ++contradicting;
        std::printf("CONTRADICTION: %.*s is %.*s, the table has %.*s\n",
                    static_cast<int>(name.size()), name.data(), static_cast<int>(found.size()),
                    found.data(), static_cast<int>(fact.size()), fact.data());
    }
};

cocoa::Class classCalled(std::string_view name) {
    return cocoa::objc_getClass(std::string(name).c_str());
}

/// Of classes that are fronts: what is sent to their objects, a subclass made at run time has. The
/// class of such an object, or the class itself.
cocoa::Class classOfObjects(std::string_view className) {
    using namespace cocoa;  // NOLINT(google-build-using-namespace): the vendor's names.
    const auto address = NSURL::URLWithString(string("ws://127.0.0.1:9"));
    const auto session = NSURLSession::sharedSession();
    const std::pair<std::string_view, NSObject> examples[] = {
        {"NSArray", NSArray::arrayWithObjects<NSString>({string("one")})},
        {"NSDate", NSDate::date()},
        {"NSLocale", NSLocale::currentLocale()},
        {"NSNumber", NSNumber::numberWithBool(true)},
        {"NSString", string("text")},
        {"NSTask", NSObject(NSTask::make().detach().autorelease().pointer())},
        {"NSURLSession", session},
        {"NSURLSessionTask", session.webSocketTaskWithURL(address)},
        {"NSURLSessionWebSocketTask", session.webSocketTaskWithURL(address)},
        {"NSUUID", NSUUID::UUID()},
    };
    for (const auto& [name, object] : examples) {
        if (name == className) return object_getClass(object.pointer());
    }
    return classCalled(className);
}

int systemVersion() {
    if (__builtin_available(macOS 14, *)) return 14;
    return 13;
}

void checkMessage(const MethodFact& fact, bool isSent, Tally& tally) {
    const auto name = std::string(fact.kind == Kind::instance ? "-[" : "+[")
                          .append(fact.className)
                          .append(" ")
                          .append(fact.selector)
                          .append("]");
    const auto selector = cocoa::sel_registerName(std::string(fact.selector).c_str());
    const auto receiver = classCalled(fact.className);
    auto* method = receiver == nullptr ? nullptr
                   : fact.kind == Kind::instance
                       ? cocoa::class_getInstanceMethod(receiver, selector)
                       : cocoa::class_getClassMethod(receiver, selector);
    if (method == nullptr && isSent && fact.kind == Kind::instance) {
        method = cocoa::class_getInstanceMethod(classOfObjects(fact.className), selector);
    }
    if (method == nullptr) {
        const bool isNeeded =
            isSent && !mayBeAbsent(fact.className, fact.selector, systemVersion());
        return isNeeded ? tally.missingMessage(name) : tally.absence("message", name);
    }
    tally.compare(name, fact.encoding, asInTheTable(cocoa::method_getTypeEncoding(method), boolIs));
}

void checkClass(const ClassFact& fact, Tally& tally) {
    const auto found = classCalled(fact.name);
    if (found == nullptr) return tally.absence("class", fact.name);
    const auto superclass = cocoa::class_getSuperclass(found);
    tally.compare(fact.name, fact.superclass,
                  superclass == nullptr ? "" : cocoa::class_getName(superclass));
}

void checkCallback(const CallbackFact& fact, Tally& tally) {
    auto* protocol = cocoa::objc_getProtocol(std::string(fact.protocol).c_str());
    if (protocol == nullptr) return tally.absence("protocol", fact.protocol);
    const auto selector = cocoa::sel_registerName(std::string(fact.selector).c_str());
    const auto described = cocoa::protocol_getMethodDescription(
        protocol, selector, cocoa::toBOOL(fact.need == Need::required), cocoa::toBOOL(true));
    if (described.types == nullptr) return tally.absence("callback", fact.selector);
    tally.compare(fact.selector, fact.encoding, asInTheTable(described.types, boolIs));
}

void checkThatItIsExported(std::string_view name, Tally& tally) {
    if (dlsym(RTLD_DEFAULT, std::string(name).c_str()) == nullptr) {
        tally.absence("symbol", name);
    } else {
        ++tally.agreeing;
    }
}

int checkEverything() {
    const cocoa::AutoreleasePool pool;
    Tally tally;
    const auto sent = declaredFacts();
    for (const auto table : methodTables) {
        for (const auto& fact : table) checkMessage(fact, sent.contains(&fact), tally);
    }
    for (const auto& fact : classes) checkClass(fact, tally);
    for (const auto& fact : callbacks) checkCallback(fact, tally);
    for (const auto table : functionTables) {
        for (const auto& fact : table) checkThatItIsExported(fact.name, tally);
    }
    for (const auto& fact : symbols) checkThatItIsExported(fact.name, tally);
    std::printf("%d facts agree, %d are absent, %d are contradicted, %d messages are missing\n",
                tally.agreeing, tally.absent, tally.contradicting, tally.missing);
    return tally.contradicting + tally.missing == 0 ? 0 : 1;
}

}  // namespace
}  // namespace stagehopper::macos_facts

int main() {
    return stagehopper::macos_facts::checkEverything();
}
