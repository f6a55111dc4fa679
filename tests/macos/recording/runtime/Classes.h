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

/// State that behaviors keep with objects and classes.
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
    /// How many objects of it the current test has created.
    unsigned objects = 0;
    stagehopper::recording::State state{};
};

namespace stagehopper::recording::classes {

// Classes stay for the whole program, since the port looks each up only once. Only the running work
// may call this.

cocoa::Class add(std::unique_ptr<objc_class> made);
/// Null if neither the facts nor the port define it.
[[nodiscard]] cocoa::Class named(std::string_view name);
/// Null unless `object` is a class.
[[nodiscard]] cocoa::Class asClass(cocoa::id object);
[[nodiscard]] bool inherits(cocoa::Class from, std::string_view name);
/// A method of one of the port's classes; null if it is absent or belongs to the system's class.
[[nodiscard]] const Method* methodOf(cocoa::Class ofClass, std::string_view selector);
/// The fact about a message to this class or its instances; null if there is none.
[[nodiscard]] const macos_facts::MethodFact* factFor(cocoa::Class ofClass, macos_facts::Kind kind,
                                                     std::string_view selector);
/// Whether only the main thread may use its objects.
[[nodiscard]] bool isForMainThread(cocoa::Class ofClass);
/// Keeps the classes themselves.
void forgetStates();

}  // namespace stagehopper::recording::classes
