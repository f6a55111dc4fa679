#include "tests/macos/recording/runtime/Registration.h"

#include <algorithm>

#include "tests/macos/facts/Agreement.h"
#include "tests/macos/facts/Facts.h"
#include "tests/macos/recording/runtime/Behaviors.h"

namespace stagehopper::recording {

namespace {

bool conforms(const objc_class& made, std::string_view protocol) {
    return std::ranges::find(made.protocols, protocol) != made.protocols.end();
}

void checkTypes(const objc_class& made, const std::string& selector, const Method& method,
                std::string_view known) {
    if (macos_facts::agrees(method.types, known)) return;
    noteProblem(made.name + " answers " + selector + " as " + method.types + ", the system asks " +
                std::string(known));
}

void checkMethod(const objc_class& made, const std::string& selector, const Method& method) {
    bool isDeclared = false;
    std::string_view missing;
    for (const auto& fact : macos_facts::callbacks) {
        if (fact.selector != selector) continue;
        if (!conforms(made, fact.protocol) && isKnownToTheRuntime(fact.protocol)) {
            missing = fact.protocol;
            continue;
        }
        isDeclared = true;
        checkTypes(made, selector, method, fact.encoding);
    }
    if (!isDeclared && !missing.empty()) {
        noteProblem(made.name + " answers " + selector + " without conforming to " +
                    std::string(missing));
    }
    const auto* inherited = macos_facts::factFor("NSObject", macos_facts::Kind::instance, selector);
    if (inherited != nullptr) checkTypes(made, selector, method, inherited->encoding);
}

}  // namespace

void checkRegistration(const objc_class& made) {
    for (const auto& [selector, method] : made.methods) checkMethod(made, selector, method);
    for (const auto& fact : macos_facts::callbacks) {
        const bool isMissing = fact.need == macos_facts::Need::required &&
                               conforms(made, fact.protocol) &&
                               !made.methods.contains(fact.selector);
        if (isMissing) {
            noteProblem(made.name + " lacks " + std::string(fact.selector) + " of " +
                        std::string(fact.protocol));
        }
    }
}

bool isKnownToTheRuntime(std::string_view protocol) {
    return protocol != "NSApplicationDelegate";
}

}  // namespace stagehopper::recording
