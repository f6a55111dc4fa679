#include "ports/simulated/SimulatedKeyboard.h"

namespace stagehopper::simulated {

namespace {

class SimulatedKeyboardEvent final : public platform::KeyboardEvent {
public:
    SimulatedKeyboardEvent(platform::VirtualKey keyCode, bool keyDown)
        : key(keyCode), down(keyDown) {}
    platform::VirtualKey key;
    bool down;
};

}  // namespace

std::unique_ptr<platform::KeyboardEvent> SimulatedKeyboard::makeKeyboardEvent(
    platform::VirtualKey key, bool keyDown) {
    if (!canMakeEvents) return nullptr;
    return std::make_unique<SimulatedKeyboardEvent>(key, keyDown);
}

platform::Outcome SimulatedKeyboard::postToProcess(platform::Pid process,
                                                   const platform::KeyboardEvent& event) {
    const auto program = workspace_.find(process);
    if (!program) return platform::Outcome::refused("no such process");
    return deliver(*program, event, std::to_string(process));
}

platform::Outcome SimulatedKeyboard::postToFocus(const platform::KeyboardEvent& event) {
    const auto program = workspace_.front ? workspace_.find(*workspace_.front) : nullptr;
    if (!program) return platform::Outcome::refused("nothing has the focus");
    return deliver(*program, event, "the focus");
}

platform::Outcome SimulatedKeyboard::deliver(RunningProgram& program,
                                             const platform::KeyboardEvent& event,
                                             const std::string& where) {
    if (program.keyRefusal()) return platform::Outcome::refused(*program.keyRefusal());
    const auto& key = dynamic_cast<const SimulatedKeyboardEvent&>(event);
    program.receive({key.key, key.down, clock_.elapsed()});
    journal_.add("key " + std::to_string(key.key) + (key.down ? " down to " : " up to ") + where);
    return platform::Outcome::done();
}

}  // namespace stagehopper::simulated
