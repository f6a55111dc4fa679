#include <chrono>
#include <optional>
#include <string>

#include "ports/macos/cocoa/CGEvent.h"
#include "tests/macos/recording/Bridged.h"
#include "tests/macos/recording/Journal.h"
#include "tests/macos/recording/Queues.h"
#include "tests/macos/recording/World.h"

// Keys. The system acknowledges none: without the right to send them, or without a receiver, they
// are dropped silently.

namespace stagehopper::recording {

namespace {

struct EventState {
    cocoa::CGKeyCode key = 0;
    bool down = false;
};

std::optional<EventState> eventOf(cocoa::CGEventRef reference, const char* function) {
    const auto object = objectOf(reference);
    if (isKindOf(object, eventClass)) return stateOf<EventState>(object);
    noteProblem(std::string(function) + " got " + describe(object));
    return std::nullopt;
}

std::string describeKey(const EventState& event) {
    return "key " + std::to_string(event.key) + (event.down ? " down" : " up");
}

void deliver(const EventState& event, std::optional<platform::Pid> process) {
    const auto& world = World::current();
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
    stateOf<EventState>(event.get()) = {key, keyDown};
    return static_cast<CGEventRef>(const_cast<void*>(giveToPort(event)));
}

void CGEventPost(CGEventTapLocation tap, CGEventRef event) {
    const auto posted = eventOf(event, "CGEventPost");
    if (!posted) return;
    recordFunction("CGEventPost", {std::to_string(tap), describeKey(*posted)});
    deliver(*posted, World::current().programs.front);
}

void CGEventPostToPid(int process, CGEventRef event) {
    const auto posted = eventOf(event, "CGEventPostToPid");
    if (!posted) return;
    recordFunction("CGEventPostToPid", {std::to_string(process), describeKey(*posted)});
    deliver(*posted, process);
}
}

}  // namespace stagehopper::cocoa
