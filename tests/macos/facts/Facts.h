#pragma once

#include <algorithm>
#include <span>
#include <string_view>
#include <tuple>

#include "tests/macos/facts/AppKit.h"
#include "tests/macos/facts/Classes.h"
#include "tests/macos/facts/Constants.h"
#include "tests/macos/facts/Foundation.h"
#include "tests/macos/facts/Functions.h"
#include "tests/macos/facts/WebKit.h"

/// What is known of the platform: looked up by the compiler, so that a wrong declaration does not
/// compile, and at run time. The tables have what the port sends and what the tests fake: null
/// means absent here, not absent from the platform. Nothing here can change; any thread.
namespace stagehopper::macos_facts {

/// All tables of messages, each sorted by class and selector.
inline constexpr std::span<const MethodFact> methodTables[] = {
    appKitMethods, foundationMethods, networkingMethods,
    webKitMethods, objectMethods,     objectMethodsOfFoundation};

inline constexpr std::span<const FunctionFact> functionTables[] = {
    runtimeFunctions,  compilerFunctions,       blockFunctions,
    dispatchFunctions, coreFoundationFunctions, applicationServicesFunctions};

namespace detail {

template <class Fact>
[[nodiscard]] constexpr const Fact* byName(std::span<const Fact> table, std::string_view name) {
    const auto found = std::ranges::lower_bound(table, name, {}, &Fact::name);
    return found != table.end() && found->name == name ? &*found : nullptr;
}

/// For equal names, the class message comes first.
[[nodiscard]] constexpr auto keyOf(const MethodFact& fact) {
    return std::tuple(fact.className, fact.selector, fact.kind == Kind::instance);
}

}  // namespace detail

[[nodiscard]] constexpr const ClassFact* classNamed(std::string_view name) {
    return detail::byName(std::span<const ClassFact>(classes), name);
}

/// The fact that the class itself declares; null if it inherits or lacks the message.
[[nodiscard]] constexpr const MethodFact* ownFact(std::string_view className, Kind kind,
                                                  std::string_view selector) {
    const auto key = std::tuple(className, selector, kind == Kind::instance);
    for (const auto table : methodTables) {
        const auto found = std::ranges::lower_bound(table, key, {}, detail::keyOf);
        if (found != table.end() && detail::keyOf(*found) == key) return &*found;
    }
    return nullptr;
}

/// The fact for a message to a class or to its instances, inherited or its own. A class object is
/// also an instance of the root class: it has the root's instance messages.
[[nodiscard]] constexpr const MethodFact* factFor(std::string_view className, Kind kind,
                                                  std::string_view selector) {
    for (const auto* each = classNamed(className); each != nullptr;
         each = classNamed(each->superclass)) {
        if (const auto* found = ownFact(each->name, kind, selector)) return found;
        if (each->superclass.empty() && kind == Kind::classLevel) {
            return ownFact(each->name, Kind::instance, selector);
        }
    }
    return nullptr;
}

/// The message that a protocol declares, for an object of ours that answers it.
[[nodiscard]] constexpr const CallbackFact* callbackFor(std::string_view protocol,
                                                        std::string_view selector) {
    for (const auto& fact : callbacks) {
        if (fact.protocol == protocol && fact.selector == selector) return &fact;
    }
    return nullptr;
}

[[nodiscard]] constexpr const FunctionFact* functionNamed(std::string_view name) {
    for (const auto table : functionTables) {
        if (const auto* found = detail::byName(table, name)) return found;
    }
    return nullptr;
}

[[nodiscard]] constexpr const SymbolFact* symbolNamed(std::string_view name) {
    return detail::byName(std::span<const SymbolFact>(symbols), name);
}

[[nodiscard]] constexpr const EnumeratorFact* enumeratorNamed(std::string_view name) {
    for (const auto& fact : enumerators) {
        if (fact.name == name) return &fact;
    }
    return nullptr;
}

[[nodiscard]] constexpr const NumberFact* numberNamed(std::string_view name) {
    return detail::byName(std::span<const NumberFact>(numbers), name);
}

[[nodiscard]] constexpr const TextFact* textNamed(std::string_view name) {
    return detail::byName(std::span<const TextFact>(texts), name);
}

}  // namespace stagehopper::macos_facts
