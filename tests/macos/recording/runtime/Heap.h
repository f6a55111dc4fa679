#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ports/macos/cocoa/objc/Runtime.h"
#include "tests/macos/recording/runtime/Classes.h"

namespace stagehopper::recording {

/// The owner of a reference. The port's references are counted separately: this finds leaks and
/// excess releases of the port even while the system holds the object.
enum class Holder { port, system };

struct Object {
    cocoa::Class itsClass = nullptr;
    /// Counts the objects of its class in this test.
    unsigned serial = 0;
    /// Never reused.
    std::uint64_t number = 0;
    /// Of both holders together.
    long references = 0;
    long heldByPort = 0;
    /// Between alloc and init.
    bool raw = false;
    /// Outlives the test: a constant.
    bool constant = false;
    bool beingFreed = false;
    State state{};
};

/// All objects except classes and blocks. Memory is really freed, so that a sanitizer finds later
/// uses; the names of freed objects stay. Only the running work may call this.
namespace heap {

/// Creates an object with one reference of the system.
cocoa::id make(cocoa::Class ofClass);
/// Null if the object is gone or never existed.
[[nodiscard]] Object* find(cocoa::id object);
/// "<NSWindow 1>" for a freed object; empty if there never was one.
[[nodiscard]] std::string nameOfFreed(cocoa::id object);
[[nodiscard]] std::string nameOf(const Object& object);

void retain(cocoa::id object, Holder holder);
void release(cocoa::id object, Holder holder);
/// Passes a reference to the other holder.
void handOver(cocoa::id object, Holder from, Holder to);
/// The root class's `dealloc`.
void free(cocoa::id object);

/// Objects to which the port still holds references: "<NSWindow 1> (2 references)".
[[nodiscard]] std::vector<std::string> heldByPort();
/// How many objects of this class there are.
[[nodiscard]] std::size_t living(std::string_view className);
/// Frees everything but constants.
void clear();

}  // namespace heap
}  // namespace stagehopper::recording
