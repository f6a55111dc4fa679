#include <dlfcn.h>

#include <cstdio>
#include <string>
#include <string_view>

#include "ports/macos/cocoa/AutoreleasePool.h"
#include "ports/macos/cocoa/Encoding.h"
#include "ports/macos/cocoa/Runtime.h"
#include "tests/macos/darwin/RuntimeEncoding.h"
#include "tests/macos/facts/Agreement.h"
#include "tests/macos/facts/Facts.h"

// Asks the runtime of this Mac about every fact of the table, and says where it knows better. Exit
// status 0: nothing contradicts. A message that a class does not have itself is only listed: some
// classes are fronts, whose messages are those of a subclass that is made at run time.

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

    void absence(const char* what, std::string_view name) {
        ++absent;
        std::printf("absent: %s %.*s\n", what, static_cast<int>(name.size()), name.data());
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

void checkMessage(const MethodFact& fact, Tally& tally) {
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
    if (method == nullptr) return tally.absence("message", name);
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
    for (const auto table : methodTables) {
        for (const auto& fact : table) checkMessage(fact, tally);
    }
    for (const auto& fact : classes) checkClass(fact, tally);
    for (const auto& fact : callbacks) checkCallback(fact, tally);
    for (const auto table : functionTables) {
        for (const auto& fact : table) checkThatItIsExported(fact.name, tally);
    }
    for (const auto& fact : symbols) checkThatItIsExported(fact.name, tally);
    std::printf("%d facts agree, %d are absent, %d are contradicted\n", tally.agreeing,
                tally.absent, tally.contradicting);
    return tally.contradicting == 0 ? 0 : 1;
}

}  // namespace
}  // namespace stagehopper::macos_facts

int main() {
    return stagehopper::macos_facts::checkEverything();
}
