// The last line of the program: how much of what the port declares was sent by the tests.

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "tests/macos/facts/DeclaredFacts.h"
#include "tests/macos/recording/runtime/MessageTally.h"

namespace stagehopper {

namespace {

class TallyReport : public testing::Environment {
    void TearDown() override {
        const auto& tally = recording::messageTally();
        const auto declared = macos_facts::declaredFacts();
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
