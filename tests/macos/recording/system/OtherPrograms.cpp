#include "tests/macos/recording/system/OtherPrograms.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace stagehopper::recording {

simulated::RunningProgram& OtherPrograms::start(simulated::Program program) {
    programs_.push_back(std::make_shared<simulated::RunningProgram>(std::move(program)));
    return *programs_.back();
}

void OtherPrograms::quit(platform::Pid process) {
    std::erase_if(programs_, [process](const auto& each) {
        return each->application().processIdentifier == process;
    });
    if (front == process) front.reset();
}

simulated::RunningProgram& OtherPrograms::program(platform::Pid process) const {
    const auto found = find(process);
    if (!found) throw std::logic_error("no process " + std::to_string(process));
    return *found;
}

std::shared_ptr<simulated::RunningProgram> OtherPrograms::find(platform::Pid process) const {
    const auto found = std::find_if(
        programs_.begin(), programs_.end(),
        [process](const auto& each) { return each->application().processIdentifier == process; });
    return found == programs_.end() ? nullptr : *found;
}

}  // namespace stagehopper::recording
