#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <typeindex>
#include <unordered_map>
#include <vector>

#include "ports/macos/cocoa/objc/Runtime.h"
#include "tests/macos/facts/Fact.h"

namespace stagehopper::recording {

/// What objects and classes carry for the behaviours.
using State = std::unordered_map<std::type_index, std::shared_ptr<void>>;

struct Method {
    cocoa::IMP implementation = nullptr;
    std::string types;
};

}  // namespace stagehopper::recording

// The runtime's own types, opaque to the port.

struct objc_selector {
    std::string name;
};

struct objc_ivar {
    std::string name;
    std::ptrdiff_t offset = 0;
};

/// A class; as a receiver of messages it is an object.
struct objc_class {
    std::string name;
    objc_class* superclass = nullptr;
    /// Made by the port.
    bool ours = false;
    bool registered = true;
    std::size_t instanceSize = sizeof(void*);
    /// By selector.
    std::map<std::string, stagehopper::recording::Method, std::less<>> methods{};
    std::map<std::string, objc_ivar, std::less<>> variables{};
    std::vector<std::string> protocols{};
    /// How many objects of it the current test has seen.
    unsigned objects = 0;
    stagehopper::recording::State state{};
};

namespace stagehopper::recording::classes {

// Classes stay for the whole program, since the port asks for each only once. Whoever has its turn.

cocoa::Class add(std::unique_ptr<objc_class> made);
/// Null when neither the facts nor the port know it.
[[nodiscard]] cocoa::Class named(std::string_view name);
/// Null when it is no class.
[[nodiscard]] cocoa::Class asClass(cocoa::id object);
[[nodiscard]] bool inherits(cocoa::Class from, std::string_view name);
/// Of one of the port's classes; null when there is none or the system's class has it.
[[nodiscard]] const Method* methodOf(cocoa::Class ofClass, std::string_view selector);
/// What the table knows of a message to this class or its instances; null when nothing.
[[nodiscard]] const macos_facts::MethodFact* factFor(cocoa::Class ofClass, macos_facts::Kind kind,
                                                     std::string_view selector);
/// Whether only the main thread may use its objects.
[[nodiscard]] bool isForMainThread(cocoa::Class ofClass);
/// The classes themselves stay.
void forgetStates();

}  // namespace stagehopper::recording::classes
