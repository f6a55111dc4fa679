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
static_assert(factFor("NSURLSessionTask", Kind::instance, "resume")->returns == Returns::plain);
static_assert(factFor("NSText", Kind::instance, "copy:")->returns == Returns::plain);
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

/// Whether each key is greater than the one before it.
template <class Table, class Key>
bool isSorted(const Table& table, Key key) {
    return std::ranges::adjacent_find(table, std::ranges::greater_equal{}, key) ==
           std::ranges::end(table);
}

TEST(FactTable, IsSortedWithoutRepetition) {
    for (const auto table : methodTables) EXPECT_TRUE(isSorted(table, detail::keyOf));
    for (const auto table : functionTables) EXPECT_TRUE(isSorted(table, &FunctionFact::name));
    EXPECT_TRUE(isSorted(classes, &ClassFact::name));
    EXPECT_TRUE(isSorted(symbols, &SymbolFact::name));
    EXPECT_TRUE(isSorted(numbers, &NumberFact::name));
    EXPECT_TRUE(isSorted(texts, &TextFact::name));
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

}  // namespace
}  // namespace stagehopper::macos_facts
