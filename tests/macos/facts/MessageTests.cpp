#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <set>
#include <string_view>
#include <type_traits>

#include "AllHeaders.h"
#include "tests/macos/facts/CheckedDispatch.h"

// The messages that our headers declare, against the table. The compiler compared their types as it
// read them; these tests check that it compared every message.

namespace stagehopper::macos_facts {
namespace {

std::set<std::string_view> selectorsSeenByTheCompiler() {
    std::set<std::string_view> selectors;
    for (const auto& message : declaredMessages()) selectors.insert(message.selector);
    return selectors;
}

template <class Function>
void forEachFact(Function function) {
    for (const auto table : methodTables) std::for_each(table.begin(), table.end(), function);
}

bool isAncestor(std::string_view ancestor, std::string_view className) {
    for (const auto* each = classNamed(className); each != nullptr;
         each = classNamed(each->superclass)) {
        if (each->superclass == ancestor) return true;
    }
    return false;
}

/// Every message of that name that takes a block takes this one.
void expectBlock(std::string_view selector, std::string_view declared) {
    int count = 0;
    forEachFact([&](const MethodFact& fact) {
        if (fact.selector != selector || fact.block.empty()) return;
        EXPECT_TRUE(agrees(declared, fact.block))
            << selector << " is given " << declared << ", the table has " << fact.block;
        ++count;
    });
    EXPECT_GT(count, 0) << selector << " takes no block";
}

template <class Signature>
struct BlockEncodingOf;
template <class Result, class... Arguments>
struct BlockEncodingOf<Result(Arguments...)> {
    static constexpr std::string_view text = cocoa::blockEncoding<Result, Arguments...>;
};

TEST(DeclaredMessages, EveryDeclarationInTheTextWasComparedWithTheTable) {
    const auto seen = selectorsSeenByTheCompiler();
    int count = 0;
#define MESSAGE(selector)                                                             \
    EXPECT_TRUE(seen.contains(selector))                                              \
        << (selector) << " stands in a header, but the compiler has not compared it"; \
    ++count;
#include "tests/macos/facts/EachDeclaration.inc"
    std::printf("%d messages in the text, %zu compared\n", count, declaredMessages().size());
    EXPECT_GT(count, 0);
}

TEST(DeclaredMessages, EveryBlockHasTheTypeOfItsMessage) {
    using namespace cocoa;  // NOLINT(google-build-using-namespace): the vendor's names.
    int count = 0;
#define BLOCK(selector, ...) expectBlock(selector, BlockEncodingOf<__VA_ARGS__>::text), ++count;
#include "tests/macos/facts/EachDeclaration.inc"
    std::printf("%d blocks\n", count);
    EXPECT_GT(count, 0);
}

TEST(DeclaredMessages, EveryHandleIsAClassOfTheTableBelowTheOneItIsDerivedFrom) {
    int count = 0;
#define HANDLE(name, base)                                                                 \
    EXPECT_EQ(cocoa::name::className.view(), #name);                                       \
    EXPECT_NE(classNamed(#name), nullptr) << #name;                                        \
    EXPECT_TRUE((std::is_base_of_v<cocoa::base, cocoa::name>));                            \
    EXPECT_TRUE(std::string_view(#base) == "Object" || isAncestor(#base, #name)) << #name; \
    ++count;
#include "tests/macos/facts/EachDeclaration.inc"
    std::printf("%d classes\n", count);
    EXPECT_GT(count, 0);
}

}  // namespace
}  // namespace stagehopper::macos_facts
