#include <algorithm>
#include <map>
#include <memory>
#include <string>

#include "ports/macos/cocoa/objc/MessageDispatch.h"
#include "tests/macos/facts/Agreement.h"
#include "tests/macos/facts/Facts.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Classes.h"
#include "tests/macos/recording/runtime/Heap.h"

// The C interface of the Objective-C runtime.

namespace stagehopper::recording {

namespace {

/// Whether a program can look up that protocol of the table: the runtime has a record only of
/// protocols that a library's own code refers to.
bool isKnownToTheRuntime(std::string_view protocol) {
    return protocol != "NSApplicationDelegate";
}

bool conforms(const objc_class& made, std::string_view protocol) {
    return std::ranges::find(made.protocols, protocol) != made.protocols.end();
}

void checkTypes(const objc_class& made, const std::string& selector, const Method& method,
                std::string_view known) {
    if (macos_facts::agrees(method.types, known)) return;
    noteProblem(made.name + " answers " + selector + " as " + method.types + ", the system asks " +
                std::string(known));
}

void checkMethod(const objc_class& made, const std::string& selector, const Method& method) {
    bool isDeclared = false;
    std::string_view missing;
    for (const auto& fact : macos_facts::callbacks) {
        if (fact.selector != selector) continue;
        if (!conforms(made, fact.protocol) && isKnownToTheRuntime(fact.protocol)) {
            missing = fact.protocol;
            continue;
        }
        isDeclared = true;
        checkTypes(made, selector, method, fact.encoding);
    }
    if (!isDeclared && !missing.empty()) {
        noteProblem(made.name + " answers " + selector + " without conforming to " +
                    std::string(missing));
    }
    const auto* inherited = macos_facts::factFor("NSObject", macos_facts::Kind::instance, selector);
    if (inherited != nullptr) checkTypes(made, selector, method, inherited->encoding);
}

/// Compares a class of the port with its protocols. Notes as problems: methods with other types,
/// missing required methods, methods of a protocol to which the class does not conform, and methods
/// of the root class with other types.
void checkRegistration(const objc_class& made) {
    for (const auto& [selector, method] : made.methods) checkMethod(made, selector, method);
    for (const auto& fact : macos_facts::callbacks) {
        const bool isMissing = fact.need == macos_facts::Need::required &&
                               conforms(made, fact.protocol) &&
                               !made.methods.contains(fact.selector);
        if (isMissing) {
            noteProblem(made.name + " lacks " + std::string(fact.selector) + " of " +
                        std::string(fact.protocol));
        }
    }
}

}  // namespace

}  // namespace stagehopper::recording

namespace stagehopper::cocoa {

namespace {

using recording::noteProblem;

void rootDealloc(id self, SEL /*name*/) {
    recording::heap::free(self);
}

/// Protocols are only ever compared; each has an address of its own.
std::map<std::string, std::unique_ptr<std::string>, std::less<>>& protocols() {
    static std::map<std::string, std::unique_ptr<std::string>, std::less<>> all;
    return all;
}

bool isOpen(Class newClass, const std::string& what) {
    if (newClass == nullptr || !newClass->ours || newClass->registered) {
        noteProblem(what + " was added to a class that is not being made");
        return false;
    }
    return true;
}

}  // namespace

extern "C" {

Class objc_getClass(const char* name) {
    auto* found = recording::classes::named(name);
    if (found == nullptr) noteProblem("no class " + std::string(name));
    return found;
}

Protocol* objc_getProtocol(const char* name) {
    const auto isIt = [name](const auto& fact) { return fact.protocol == name; };
    if (std::ranges::none_of(macos_facts::callbacks, isIt)) {
        noteProblem("no protocol " + std::string(name));
        return nullptr;
    }
    if (!recording::isKnownToTheRuntime(name)) return nullptr;
    auto& slot = protocols()[name];
    if (!slot) slot = std::make_unique<std::string>(name);
    return reinterpret_cast<Protocol*>(slot.get());
}

SEL sel_registerName(const char* name) {
    static std::map<std::string, std::unique_ptr<objc_selector>, std::less<>> all;
    auto& slot = all[name];
    if (!slot) slot = std::make_unique<objc_selector>(objc_selector{name});
    return slot.get();
}

Class objc_allocateClassPair(Class superclass, const char* name, std::size_t extraBytes) {
    if (recording::classes::named(name) != nullptr) {
        noteProblem("there is a class " + std::string(name) + " already");
        return nullptr;
    }
    auto made = std::make_unique<objc_class>();
    made->name = name;
    made->superclass = superclass;
    made->ours = true;
    made->registered = false;
    made->instanceSize = superclass->instanceSize + extraBytes;
    return recording::classes::add(std::move(made));
}

void objc_registerClassPair(Class newClass) {
    if (!isOpen(newClass, "the registration")) return;
    newClass->registered = true;
    recording::checkRegistration(*newClass);
}

BOOL class_addMethod(Class newClass, SEL name, IMP implementation, const char* types) {
    // Never replace one.
    if (newClass == nullptr || !newClass->ours) {
        noteProblem("a method was added to a class of the system's");
        return toBOOL(false);
    }
    if (newClass->registered) {
        noteProblem("the method " + name->name + " came after the registration: who asked " +
                    newClass->name + " before whether it has it never sends it");
    }
    const bool isNew =
        newClass->methods.emplace(name->name, recording::Method{implementation, types}).second;
    if (!isNew) noteProblem("a second method " + name->name + " for " + newClass->name);
    return toBOOL(isNew);
}

BOOL class_addIvar(Class newClass, const char* name, std::size_t size, std::uint8_t alignment,
                   const char* /*types*/) {
    if (!isOpen(newClass, "the variable " + std::string(name))) return toBOOL(false);
    const auto unit = std::size_t{1} << alignment;
    const auto offset = (newClass->instanceSize + unit - 1) / unit * unit;
    newClass->instanceSize = offset + size;
    newClass->variables[name] = {name, static_cast<std::ptrdiff_t>(offset)};
    return toBOOL(true);
}

BOOL class_addProtocol(Class newClass, Protocol* protocol) {
    const auto& name = *reinterpret_cast<const std::string*>(protocol);
    if (!isOpen(newClass, "the protocol " + name)) return toBOOL(false);
    newClass->protocols.push_back(name);
    return toBOOL(true);
}

Class object_getClass(id object) {
    if (object == nullptr) return nullptr;
    if (const auto* record = recording::heap::find(object)) return record->itsClass;
    noteProblem("the class of " + recording::describe(object) + " was asked for");
    return nullptr;
}

Ivar class_getInstanceVariable(Class ofClass, const char* name) {
    for (; ofClass != nullptr; ofClass = ofClass->superclass) {
        const auto found = ofClass->variables.find(name);
        if (found != ofClass->variables.end()) return &found->second;
    }
    noteProblem("no instance variable " + std::string(name));
    return nullptr;
}

std::ptrdiff_t ivar_getOffset(Ivar variable) {
    return variable == nullptr ? 0 : variable->offset;
}

IMP class_getMethodImplementation(Class ofClass, SEL name) {
    if (const auto* own = recording::classes::methodOf(ofClass, name->name)) {
        return own->implementation;
    }
    if (name->name != "dealloc") {
        noteProblem("the implementation of " + ofClass->name + " " + name->name +
                    " was asked for, which is the system's");
    }
    return reinterpret_cast<IMP>(&rootDealloc);
}
}

}  // namespace stagehopper::cocoa
