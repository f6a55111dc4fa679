#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ports/macos/cocoa/objc/Runtime.h"
#include "tests/macos/recording/runtime/Classes.h"

namespace stagehopper::recording {

/// Who holds a reference. The port's are counted apart, so that what it forgets is found also when
/// the system holds the object, and what it gives back too often, too.
enum class Holder { port, system };

struct Object {
    cocoa::Class itsClass = nullptr;
    /// Of its class, in this test.
    unsigned serial = 0;
    /// Never given twice.
    std::uint64_t number = 0;
    /// Held by both together.
    long references = 0;
    long heldByPort = 0;
    /// Between alloc and init.
    bool raw = false;
    /// Outlives the test: a constant.
    bool constant = false;
    bool beingFreed = false;
    State state{};
};

/// All objects but classes and blocks. Memory is really given back, so that a sanitizer sees who
/// still uses it; the name of what was there stays. Whoever has its turn.
namespace heap {

/// With one reference, the system's.
cocoa::id make(cocoa::Class ofClass);
/// Null when it has gone or never was.
[[nodiscard]] Object* find(cocoa::id object);
/// "<NSWindow 1>" of what was freed; empty when nothing ever was there.
[[nodiscard]] std::string nameOfFreed(cocoa::id object);
[[nodiscard]] std::string nameOf(const Object& object);

void retain(cocoa::id object, Holder holder);
void release(cocoa::id object, Holder holder);
/// The reference changes hands.
void handOver(cocoa::id object, Holder from, Holder to);
/// What the root class's `dealloc` does.
void free(cocoa::id object);

/// Objects to which the port still holds references: "<NSWindow 1> (2 references)".
[[nodiscard]] std::vector<std::string> heldByPort();
/// How many objects of this class there are.
[[nodiscard]] std::size_t living(std::string_view className);
/// Frees everything but constants.
void clear();

}  // namespace heap
}  // namespace stagehopper::recording
