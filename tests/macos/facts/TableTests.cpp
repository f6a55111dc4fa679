#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <utility>

#include "tests/macos/facts/Agreement.h"
#include "tests/macos/facts/Facts.h"

// The table itself: sorted, without contradictions, readable as encodings.

namespace stagehopper::macos_facts {
namespace {

// Looked up by the compiler, as the declarations are.
static_assert(factFor("NSWindow", Kind::instance, "setLevel:")->encoding == "v@:q");
static_assert(factFor("NSPanel", Kind::instance, "setLevel:")->className == "NSWindow");
static_assert(factFor("WKWebView", Kind::instance, "retain")->className == "NSObject");
static_assert(factFor("NSString", Kind::classLevel, "alloc")->returns == Returns::retained);
static_assert(factFor("NSString", Kind::classLevel, "respondsToSelector:")->encoding == "B@::");
static_assert(factFor("NSString", Kind::instance, "setLevel:") == nullptr);
static_assert(factFor("NSString", Kind::classLevel, "length") == nullptr);
static_assert(factFor("NoSuchClass", Kind::instance, "retain") == nullptr);

static_assert(agrees("@@:r^vQQ", "@@:^vQQ"));
static_assert(agrees("v@:", "Vv@:"));
static_assert(agrees("v@:{CGPoint=dd}", "v@:{CGPoint=dd}"));
static_assert(!agrees("v@:{CGoint=dd}", "v@:{CGPoint=dd}"));
static_assert(!agrees("v@:", "v@:@"));
static_assert(!agrees("v@:q", "v@:Q"));
static_assert(!agrees("v@:qr", "v@:qQ"));

/// The end of the encoding that starts there; npos if it is invalid.
std::size_t endOfType(std::string_view text, std::size_t position) {
    while (position < text.size() && detail::isQualifier(text[position])) ++position;
    if (position >= text.size()) return std::string_view::npos;
    switch (text[position]) {
        case '^':
            return endOfType(text, position + 1);
        case '@':
            return text.substr(position, 2) == "@?" ? position + 2 : position + 1;
        case '{': {
            int depth = 0;
            for (; position < text.size(); ++position) {
                if (text[position] == '{') ++depth;
                if (text[position] == '}' && --depth == 0) return position + 1;
            }
            return std::string_view::npos;
        }
        default:
            return std::string_view("vBcCsSiIlLqQfd*#:?").find(text[position]) ==
                           std::string_view::npos
                       ? std::string_view::npos
                       : position + 1;
    }
}

/// The number of types in the text; -1 if it is invalid.
int countTypes(std::string_view text) {
    int count = 0;
    for (std::size_t position = 0; position < text.size(); ++count) {
        position = endOfType(text, position);
        if (position == std::string_view::npos) return -1;
    }
    return count;
}

TEST(FactTable, IsSortedByClassAndSelectorWithoutRepetition) {
    for (const auto table : methodTables) {
        for (std::size_t i = 1; i < table.size(); ++i) {
            const auto& fact = table[i];
            EXPECT_LT(detail::compare(table[i - 1], fact.className, fact.kind, fact.selector), 0)
                << fact.className << ' ' << fact.selector;
        }
    }
}

template <class Table>
void expectSortedByName(const Table& table) {
    for (std::size_t i = 1; i < std::size(table); ++i) {
        EXPECT_LT(table[i - 1].name, table[i].name);
    }
}

TEST(FactTable, ListsOfNamesAreSortedWithoutRepetition) {
    expectSortedByName(classes);
    expectSortedByName(symbols);
    expectSortedByName(numbers);
    expectSortedByName(texts);
    for (const auto table : functionTables) expectSortedByName(table);
}

TEST(FactTable, EveryMessageHasAClassOneTypePerColonAndAReceiver) {
    for (const auto table : methodTables) {
        for (const auto& fact : table) {
            SCOPED_TRACE(std::string(fact.className) + " " + std::string(fact.selector));
            EXPECT_NE(classNamed(fact.className), nullptr);
            const auto colons = std::count(fact.selector.begin(), fact.selector.end(), ':');
            EXPECT_EQ(countTypes(fact.encoding), colons + 3);
            const auto receiver = endOfType(fact.encoding, 0);
            EXPECT_EQ(fact.encoding.substr(receiver, 2), "@:");
            EXPECT_EQ(fact.block.empty(), fact.encoding.find("@?") == std::string_view::npos);
            EXPECT_GE(countTypes(fact.block), fact.block.empty() ? 0 : 2);
        }
    }
}

TEST(FactTable, OnlyResultsOfAllocNewCopyAndInitAreOwned) {
    for (const auto table : methodTables) {
        for (const auto& fact : table) {
            const auto inFamily = [&fact](std::string_view family) {
                const auto rest =
                    fact.selector.substr(std::min(family.size(), fact.selector.size()));
                return fact.selector.starts_with(family) &&
                       (rest.empty() || rest[0] == ':' || (rest[0] >= 'A' && rest[0] <= 'Z'));
            };
            const bool owned = fact.encoding.starts_with('@') &&
                               (inFamily("alloc") || inFamily("new") || inFamily("copy") ||
                                inFamily("mutableCopy") || inFamily("init"));
            EXPECT_EQ(fact.returns == Returns::retained, owned)
                << fact.className << ' ' << fact.selector;
        }
    }
}

TEST(FactTable, EverySuperclassIsInTheTableAndEveryChainEndsAtTheRoot) {
    for (const auto& fact : classes) {
        const auto* each = &fact;
        int steps = 0;
        while (!each->superclass.empty() && ++steps < 10) {
            each = classNamed(each->superclass);
            ASSERT_NE(each, nullptr) << fact.name;
        }
        EXPECT_EQ(each->name, "NSObject") << fact.name;
    }
}

TEST(FactTable, CallbacksHaveOneTypePerColonAndAreUnique) {
    std::set<std::pair<std::string_view, std::string_view>> seen;
    for (const auto& fact : callbacks) {
        const auto colons = std::count(fact.selector.begin(), fact.selector.end(), ':');
        EXPECT_EQ(countTypes(fact.encoding), colons + 3) << fact.selector;
        EXPECT_TRUE(seen.emplace(fact.protocol, fact.selector).second) << fact.selector;
        EXPECT_EQ(callbackFor(fact.protocol, fact.selector), &fact);
    }
}

TEST(FactTable, TheLookUpFindsEveryMessage) {
    std::size_t count = 0;
    for (const auto table : methodTables) {
        for (const auto& fact : table) {
            EXPECT_EQ(ownFact(fact.className, fact.kind, fact.selector), &fact)
                << fact.className << ' ' << fact.selector;
            ++count;
        }
    }
    for (const auto& fact : enumerators) EXPECT_EQ(enumeratorNamed(fact.name), &fact) << fact.name;
    RecordProperty("messages", static_cast<int>(count));
}

}  // namespace
}  // namespace stagehopper::macos_facts
