#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

#include <string>
#include <string_view>
#include <type_traits>

#include "AllHeaders.h"
#include "tests/macos/facts/Agreement.h"
#include "tests/macos/facts/Facts.h"
#include "tests/macos/facts/SignatureEncoding.h"

// Every C function, variable, enumerator and constant that our headers declare, as the compiler
// sees them, against the table. The list is made from the headers' text, so that none is left out.

namespace stagehopper::macos_facts {
namespace {

template <class Function>
void expectFunction(std::string_view name) {
    const auto* fact = functionNamed(name);
    ASSERT_NE(fact, nullptr) << name << " is not in the table";
    const auto declared = SignatureOf<Function>::text();
    EXPECT_TRUE(agrees(declared, fact->signature))
        << name << " is declared as " << declared << ", the table has " << fact->signature;
}

template <class Variable>
void expectVariable(std::string_view name) {
    const auto* fact = symbolNamed(name);
    ASSERT_NE(fact, nullptr) << name << " is not in the table";
    const auto declared = encodingOf<Variable>();
    EXPECT_TRUE(agrees(declared, fact->encoding))
        << name << " is declared as " << declared << ", the table has " << fact->encoding;
}

/// Two values of integer types, compared as numbers.
template <class T, class U>
bool same(T left, U right) {
    using Common = std::common_type_t<T, U>;
    return static_cast<Common>(left) == static_cast<Common>(right);
}

template <class Enumeration>
void expectEnumerator(std::string_view enumeration, std::string_view name, Enumeration value) {
    const auto* fact = enumeratorNamed(name);
    ASSERT_NE(fact, nullptr) << name << " is not in the table";
    const auto plain = static_cast<std::underlying_type_t<Enumeration>>(value);
    EXPECT_EQ(fact->enumeration, enumeration) << name;
    EXPECT_TRUE(same(plain, fact->value)) << name << " is " << plain << ", not " << fact->value;
    EXPECT_EQ(encodingOf<Enumeration>(), fact->type) << name;
}

template <class T>
void expectConstant(std::string_view name, T value) {
    if constexpr (std::is_convertible_v<T, std::string_view>) {
        const auto* fact = textNamed(name);
        ASSERT_NE(fact, nullptr) << name << " is not in the table";
        EXPECT_EQ(std::string_view(value), fact->text) << name;
    } else if (const auto* number = numberNamed(name)) {
        EXPECT_TRUE(same(value, number->value)) << name << " is " << value;
    } else {
        const auto* enumerator = enumeratorNamed(name);
        ASSERT_NE(enumerator, nullptr) << name << " is not in the table";
        EXPECT_TRUE(same(value, enumerator->value)) << name << " is " << value;
    }
}

TEST(Declarations, AllAgreeWithTheTable) {
    // The names are the vendor's; ours stand in the namespace where the headers put them.
    using namespace cocoa;  // NOLINT(google-build-using-namespace)
    int functions = 0;
    int variables = 0;
    int enumerators = 0;
    int constants = 0;
#define FUNCTION(name) expectFunction<decltype(name)>(#name), ++functions;
#define VARIABLE(name) expectVariable<decltype(name)>(#name), ++variables;
#define ENUMERATOR(enumeration, name) expectEnumerator(#enumeration, #name, name), ++enumerators;
#define CONSTANT(name) expectConstant(#name, name), ++constants;
#include "tests/macos/facts/EachDeclaration.inc"
    std::printf("%d functions, %d variables, %d enumerators, %d constants\n", functions, variables,
                enumerators, constants);
    EXPECT_GT(functions, 0);
    EXPECT_GT(enumerators, 0);
}

TEST(Declarations, EveryNameOfTheAccessibilityInterfaceIsInTheTable) {
    int count = 0;
    const auto expectName = [&count](std::string_view name) {
        EXPECT_TRUE(std::ranges::any_of(texts, [name](const TextFact& fact) {
            return fact.text == name;
        })) << name;
        ++count;
    };
#define DECLARATIONS "Sources.inc"
#define ACCESSIBILITY_NAME(name) expectName(name);
#include "tests/macos/facts/EachDeclaration.inc"
    std::printf("%d names of the accessibility interface\n", count);
    EXPECT_GT(count, 0);
}

TEST(Declarations, BooleansAreOneByteAndGeometryIsDoubles) {
    EXPECT_EQ(sizeof(cocoa::BOOL), 1U);
    EXPECT_EQ(sizeof(cocoa::CGRect), 4 * sizeof(double));
    EXPECT_EQ(sizeof(cocoa::NSInteger), 8U);
}

}  // namespace
}  // namespace stagehopper::macos_facts
