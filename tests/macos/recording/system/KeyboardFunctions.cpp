#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "ports/macos/cocoa/graphics/CGEvent.h"
#include "tests/macos/recording/foundation/Bridged.h"
#include "tests/macos/recording/runtime/Journal.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/system/World.h"

// Keys. The system acknowledges none: without the right to send them, or without a receiver, they
// are dropped silently.

namespace stagehopper::recording {

namespace {

constexpr std::uint64_t numericPad = 0x200000;
constexpr std::uint64_t secondaryFn = 0x800000;

struct EventState {
    cocoa::CGKeyCode key = 0;
    bool down = false;
    std::uint64_t flags = 0;
};

/// What a key carries by itself: the system counts arrows to the numeric pad, and arrows and page
/// keys to those that a small keyboard has with "fn".
std::uint64_t ownFlags(cocoa::CGKeyCode key) {
    constexpr cocoa::CGKeyCode firstArrow = 123;
    constexpr cocoa::CGKeyCode lastArrow = 126;
    if (key >= firstArrow && key <= lastArrow) return numericPad | secondaryFn;
    return key == 116 || key == 121 ? secondaryFn : 0;
}

/// Null, and a problem, for what is no event.
EventState* eventOf(cocoa::CGEventRef reference, const char* function) {
    const auto object = objectOf(reference);
    if (isKindOf(object, eventClass)) return &stateOf<EventState>(object);
    noteProblem(std::string(function) + " got " + describe(object));
    return nullptr;
}

std::string describeKey(const EventState& event) {
    return "key " + std::to_string(event.key) + (event.down ? " down" : " up");
}

void deliver(const EventState& event, std::optional<platform::Pid> process) {
    auto& world = World::current();
    world.keyboard.postedFlags.push_back(event.flags);
    if (!world.accessibility.trusted || !process) return;
    const std::chrono::duration<double> now(queues::now());
    if (const auto program = world.programs.find(*process)) {
        program->receive(
            {event.key, event.down, std::chrono::duration_cast<std::chrono::nanoseconds>(now)});
    }
}

}  // namespace

}  // namespace stagehopper::recording

namespace stagehopper::cocoa {

using namespace recording;

extern "C" {
CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef source, CGKeyCode key, bool keyDown) {
    if (source != nullptr) noteProblem("a key has a source");
    if (!World::current().keyboard.works) return nullptr;
    const auto event = makeObject(eventClass);
    stateOf<EventState>(event.get()) = {key, keyDown,
                                        World::current().keyboard.held | ownFlags(key)};
    return static_cast<CGEventRef>(const_cast<void*>(giveToPort(event)));
}

CGEventFlags CGEventGetFlags(CGEventRef event) {
    const auto* asked = eventOf(event, "CGEventGetFlags");
    return static_cast<CGEventFlags>(asked == nullptr ? 0 : asked->flags);
}

void CGEventSetFlags(CGEventRef event, CGEventFlags flags) {
    if (auto* changed = eventOf(event, "CGEventSetFlags")) changed->flags = flags;
}

void CGEventPost(CGEventTapLocation tap, CGEventRef event) {
    const auto* posted = eventOf(event, "CGEventPost");
    if (posted == nullptr) return;
    recordFunction("CGEventPost", {std::to_string(tap), describeKey(*posted)});
    deliver(*posted, World::current().programs.front);
}

void CGEventPostToPid(int process, CGEventRef event) {
    const auto* posted = eventOf(event, "CGEventPostToPid");
    if (posted == nullptr) return;
    recordFunction("CGEventPostToPid", {std::to_string(process), describeKey(*posted)});
    deliver(*posted, process);
}
}

}  // namespace stagehopper::cocoa
