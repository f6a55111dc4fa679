#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "tests/macos/facts/AppKit.h"
#include "tests/macos/facts/Classes.h"
#include "tests/macos/facts/Constants.h"
#include "tests/macos/facts/Enumerations.h"
#include "tests/macos/facts/Foundation.h"
#include "tests/macos/facts/FrameworkFunctions.h"
#include "tests/macos/facts/NSObject.h"
#include "tests/macos/facts/Networking.h"
#include "tests/macos/facts/Protocols.h"
#include "tests/macos/facts/RuntimeFunctions.h"
#include "tests/macos/facts/Symbols.h"
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

/// The first fact of a sorted table for which `isBefore` is false; null if there is none.
template <class Fact, class IsBefore>
[[nodiscard]] constexpr const Fact* lowerBound(std::span<const Fact> table, IsBefore isBefore) {
    std::size_t begin = 0;
    std::size_t end = table.size();
    while (begin < end) {
        const auto middle = begin + (end - begin) / 2;
        if (isBefore(table[middle])) {
            begin = middle + 1;
        } else {
            end = middle;
        }
    }
    return begin == table.size() ? nullptr : &table[begin];
}

template <class Fact>
[[nodiscard]] constexpr const Fact* byName(std::span<const Fact> table, std::string_view name) {
    const auto* found =
        lowerBound(table, [name](const Fact& fact) { return fact.name.compare(name) < 0; });
    return found != nullptr && found->name == name ? found : nullptr;
}

[[nodiscard]] constexpr int compare(const MethodFact& fact, std::string_view className, Kind kind,
                                    std::string_view selector) {
    if (const int order = fact.className.compare(className); order != 0) return order;
    if (const int order = fact.selector.compare(selector); order != 0) return order;
    // For equal names, the class message comes first.
    return static_cast<int>(kind) - static_cast<int>(fact.kind);
}

}  // namespace detail

[[nodiscard]] constexpr const ClassFact* classNamed(std::string_view name) {
    return detail::byName(std::span<const ClassFact>(classes), name);
}

/// The fact that the class itself declares; null if it inherits or lacks the message.
[[nodiscard]] constexpr const MethodFact* ownFact(std::string_view className, Kind kind,
                                                  std::string_view selector) {
    for (const auto table : methodTables) {
        const auto* found = detail::lowerBound(table, [&](const MethodFact& fact) {
            return detail::compare(fact, className, kind, selector) < 0;
        });
        if (found != nullptr && detail::compare(*found, className, kind, selector) == 0) {
            return found;
        }
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
