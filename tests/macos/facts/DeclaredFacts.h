#pragma once

#include <set>
#include <string_view>

#include "tests/macos/facts/Facts.h"

namespace stagehopper::macos_facts {

/// The facts of every message that a handle of the port's has. For programs that have the scanner's
/// "Declarations.inc" on their include path.
[[nodiscard]] inline std::set<const MethodFact*> declaredFacts() {
    std::set<const MethodFact*> facts;
    std::string_view className;
    const auto add = [&](std::string_view selector) {
        for (const auto kind : {Kind::instance, Kind::classLevel}) {
            if (const auto* fact = factFor(className, kind, selector)) {
                facts.insert(fact);
                return;
            }
        }
    };
#define HANDLE(name, base) className = #name;
#define MESSAGE(selector) add(selector);
#include "tests/macos/facts/EachDeclaration.inc"
    return facts;
}

}  // namespace stagehopper::macos_facts
