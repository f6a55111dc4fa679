// The last line of the program: how much of what the port declares was sent by the tests.

#include <gtest/gtest.h>

#include <cstdio>
#include <set>
#include <string>
#include <string_view>

#include "tests/macos/facts/Facts.h"
#include "tests/macos/recording/MessageTally.h"

namespace stagehopper {

namespace {

using macos_facts::Kind;
using macos_facts::MethodFact;

void addFact(std::set<const MethodFact*>& facts, std::string_view className,
             std::string_view selector) {
    for (const auto kind : {Kind::instance, Kind::classLevel}) {
        if (const auto* fact = macos_facts::factFor(className, kind, selector)) {
            facts.insert(fact);
            return;
        }
    }
}

/// Every message that a handle of the port's has.
std::set<const MethodFact*> declaredMessages() {
    std::set<const MethodFact*> facts;
    std::string_view className;
#define HANDLE(name, base) className = #name;
#define MESSAGE(selector) addFact(facts, className, selector);
#include "tests/macos/facts/EachDeclaration.inc"
    return facts;
}

class TallyReport : public testing::Environment {
    void TearDown() override {
        const auto& tally = recording::messageTally();
        const auto declared = declaredMessages();
        std::size_t used = 0;
        std::string never;
        for (const auto* fact : declared) {
            if (tally.contains(*fact)) {
                ++used;
            } else {
                never += " " + std::string(fact->className) + "/" + std::string(fact->selector);
            }
        }
        std::printf("%zu messages recorded, %zu different ones of %zu declared; never:%s\n",
                    tally.sent(), used, declared.size(), never.c_str());
    }
};

const auto* const registered = testing::AddGlobalTestEnvironment(new TallyReport);

}  // namespace

}  // namespace stagehopper
