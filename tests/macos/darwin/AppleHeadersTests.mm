#include <AppKit/AppKit.h>
#include <ApplicationServices/ApplicationServices.h>
#include <WebKit/WebKit.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <string_view>
#include <type_traits>

#include "tests/macos/darwin/RuntimeEncoding.h"
#include "tests/macos/facts/Agreement.h"
#include "tests/macos/facts/Facts.h"

// On a Mac: Apple's own headers against the table of facts, for every C function, variable,
// enumerator and constant that the port declares. That the port agrees with the table other tests
// have seen; nothing of the port is included here, where its names would be declared twice.

// In no header, but called by every compiler.
extern "C" void* objc_autoreleasePoolPush(void);
extern "C" void objc_autoreleasePoolPop(void*);

namespace stagehopper::macos_facts {
namespace {

constexpr auto boolIs =
    std::is_same_v<BOOL, signed char> ? BoolIs::signedChar : BoolIs::bool8;

template <class T>
std::string appleEncoding() {
    return asInTheTable(@encode(T), boolIs);
}

template <class T>
struct AppleSignature;
template <class Result, class... Arguments>
struct AppleSignature<Result(Arguments...)> {
    static std::string text() {
        std::string arguments;
        ((arguments += (arguments.empty() ? "" : ",") + appleEncoding<Arguments>()), ...);
        return appleEncoding<Result>() + "(" + arguments + ")";
    }
};
template <class Result, class... Arguments>
struct AppleSignature<Result(Arguments..., ...)> {
    static std::string text() {
        auto fixed = AppleSignature<Result(Arguments...)>::text();
        return fixed.insert(fixed.size() - 1, ",...");
    }
};

/// Those of libSystem and of the runtime have a check of their own, in which the compiler sees
/// them twice; to Objective-C their types are objects.
constexpr bool isOfAFramework(const auto* fact) {
    return fact == nullptr ||
           (fact->library != Library::libSystem && fact->library != Library::libobjc);
}

template <class Function, bool isOfAFramework>
void expectFunction(std::string_view name) {
    if constexpr (isOfAFramework) {
        const auto* fact = functionNamed(name);
        ASSERT_NE(fact, nullptr) << name;
        const auto apples = AppleSignature<Function>::text();
        EXPECT_TRUE(agrees(apples, fact->signature))
            << name << " is " << apples << ", the table has " << fact->signature;
    }
}

template <class Variable, bool isOfAFramework>
void expectVariable(std::string_view name) {
    if constexpr (isOfAFramework) {
        const auto* fact = symbolNamed(name);
        ASSERT_NE(fact, nullptr) << name;
        const auto apples = appleEncoding<std::remove_cv_t<Variable>>();
        EXPECT_TRUE(agrees(apples, fact->encoding))
            << name << " is " << apples << ", the table has " << fact->encoding;
    }
}

template <class T>
void expectEnumerator(std::string_view name, T value) {
    const auto* fact = enumeratorNamed(name);
    ASSERT_NE(fact, nullptr) << name;
    EXPECT_EQ(static_cast<long long>(value), fact->value) << name;
    EXPECT_EQ(appleEncoding<std::underlying_type_t<T>>(), fact->type) << name;
}

template <class T>
void expectConstant(std::string_view name, T value) {
    if (const auto* number = numberNamed(name)) {
        EXPECT_EQ(static_cast<unsigned long long>(value), number->value) << name;
    } else {
        const auto* fact = enumeratorNamed(name);
        ASSERT_NE(fact, nullptr) << name;
        EXPECT_EQ(static_cast<long long>(value), fact->value) << name;
    }
}

[[maybe_unused]] void expectConstant(std::string_view name, CFStringRef value) {
    const auto* fact = textNamed(name);
    ASSERT_NE(fact, nullptr) << name;
    char text[256] = "";
    EXPECT_TRUE(CFStringGetCString(value, text, sizeof text, kCFStringEncodingUTF8)) << name;
    EXPECT_EQ(std::string_view(text), fact->text) << name;
}

TEST(AppleHeaders, AgreeWithTheTableInEveryDeclarationOfThePort) {
    int count = 0;
#define FUNCTION(name) \
    expectFunction<decltype(::name), isOfAFramework(functionNamed(#name))>(#name), ++count;
#define VARIABLE(name) \
    expectVariable<decltype(::name), isOfAFramework(symbolNamed(#name))>(#name), ++count;
#define ENUMERATOR(enumeration, name) expectEnumerator(#name, ::name), ++count;
// Some are macros.
#define CONSTANT(name) expectConstant(#name, name), ++count;
#include "tests/macos/facts/EachDeclaration.inc"
    std::printf("%d declarations\n", count);
    EXPECT_GT(count, 0);
}

}  // namespace
}  // namespace stagehopper::macos_facts
