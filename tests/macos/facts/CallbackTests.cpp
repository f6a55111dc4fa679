#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <set>
#include <string_view>
#include <vector>

#include "AllHeaders.h"
#include "Owners.inc"
#include "tests/macos/facts/CheckedDispatch.h"
#include "tests/macos/facts/NewerMessages.h"

// What the system sends to the classes that we register, against the protocols in the table; and
// the selectors that we name for others to send.

namespace stagehopper::macos_facts {
namespace {

struct OurMethod {
    /// Names, with spaces between them.
    std::string_view protocols;
    std::string_view selector;
    std::string_view encoding;
};

std::vector<OurMethod>& ourMethods() {
    static std::vector<OurMethod> methods;
    return methods;
}

template <class Member>
struct EncodingOfMember;
template <class Owner, class Result, class... Arguments>
struct EncodingOfMember<Result (Owner::*)(Arguments...)> {
    static constexpr std::string_view text = cocoa::methodEncoding<Result, Arguments...>;
};

/// Enters one method in the list. Instantiated by name, since that may name private members.
template <cocoa::FixedString protocols, cocoa::FixedString selector, auto member>
struct EnterMethod {
    static inline const bool entered = [] {
        ourMethods().push_back(
            {protocols.view(), selector.view(), EncodingOfMember<decltype(member)>::text});
        return true;
    }();
};

#define DECLARATIONS "Sources.inc"
#define CALLBACK(protocols, selector, owner, member) \
    template struct EnterMethod<protocols, selector, &macos_port::owner::member>;
#include "tests/macos/facts/EachDeclaration.inc"

/// By our headers and by our sources; those declare nothing else of the vendor's.
std::set<std::string_view> namedSelectors() {
    std::set<std::string_view> selectors;
#define SELECTOR(name) selectors.insert(name);
#include "tests/macos/facts/EachDeclaration.inc"

#define DECLARATIONS "Sources.inc"
#define SELECTOR(name) selectors.insert(name);
#define IN_THE_WRONG_PLACE static_assert(false, "declare it in a header of ports/macos/cocoa");
#define CONSTANT(...) IN_THE_WRONG_PLACE
#define ENUMERATOR(...) IN_THE_WRONG_PLACE
#define FUNCTION(...) IN_THE_WRONG_PLACE
#define HANDLE(...) IN_THE_WRONG_PLACE
#define MESSAGE(...) IN_THE_WRONG_PLACE
#define VARIABLE(...) IN_THE_WRONG_PLACE
#include "tests/macos/facts/EachDeclaration.inc"
    return selectors;
}

const CallbackFact* callbackOf(const OurMethod& method) {
    auto rest = method.protocols;
    while (!rest.empty()) {
        const auto end = std::min(rest.find(' '), rest.size());
        if (const auto* fact = callbackFor(rest.substr(0, end), method.selector)) return fact;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return nullptr;
}

TEST(OurClasses, EveryProtocolMethodHasTheSystemsTypes) {
    int count = 0;
    for (const auto& method : ourMethods()) {
        const auto* fact = callbackOf(method);
        if (fact == nullptr) continue;
        EXPECT_TRUE(agrees(method.encoding, fact->encoding))
            << method.selector << " is written as " << method.encoding << ", the table has "
            << fact->encoding;
        ++count;
    }
    std::printf("%d methods of protocols\n", count);
    EXPECT_GT(count, 0);
}

TEST(OurClasses, EveryOtherMethodIsAnActionNamedByThePort) {
    const auto named = namedSelectors();
    for (const auto& method : ourMethods()) {
        if (callbackOf(method) != nullptr) continue;
        EXPECT_TRUE(named.contains(method.selector))
            << method.selector << " is in none of the protocols " << method.protocols;
        EXPECT_TRUE(method.encoding == "v@:" || method.encoding == "v@:@") << method.selector;
    }
}

TEST(OurClasses, EveryRequiredMethodOfTheirProtocolsIsPresent) {
    for (const auto& method : ourMethods()) {
        for (const auto& fact : callbacks) {
            const auto conforms = method.protocols.find(fact.protocol) != std::string_view::npos;
            if (!conforms || fact.need == Need::optional) continue;
            EXPECT_TRUE(std::ranges::any_of(ourMethods(),
                                            [&](const OurMethod& other) {
                                                return other.protocols == method.protocols &&
                                                       other.selector == fact.selector;
                                            }))
                << fact.protocol << ' ' << fact.selector;
        }
    }
}

TEST(OurClasses, EverySelectorNamedByThePortIsAMessageOfTheTableOrAMethodOfOurs) {
    for (const auto selector : namedSelectors()) {
        const bool isOurs = std::ranges::any_of(
            ourMethods(), [&](const OurMethod& method) { return method.selector == selector; });
        const bool isKnown = std::ranges::any_of(methodTables, [&](const auto& table) {
            return std::ranges::any_of(
                table, [&](const MethodFact& fact) { return fact.selector == selector; });
        });
        EXPECT_TRUE(isOurs || isKnown) << selector;
    }
    EXPECT_FALSE(namedSelectors().empty());
}

TEST(NewerMessages, AreTestedForBeforeTheyAreSent) {
    for (const auto& message : newerMessages) {
        EXPECT_TRUE(namedSelectors().contains(message.selector)) << message.selector;
        EXPECT_NE(ownFact(message.className, Kind::instance, message.selector), nullptr)
            << message.selector;
    }
}

TEST(NewerMessages, MayBeAbsentOnlyOnOlderSystems) {
    EXPECT_TRUE(mayBeAbsent("NSApplication", "activate", 13));
    EXPECT_FALSE(mayBeAbsent("NSApplication", "activate", 14));
    EXPECT_FALSE(mayBeAbsent("NSApplication", "run", 12));
}

}  // namespace
}  // namespace stagehopper::macos_facts
