#include "ports/simulated/SimulatedWorkspace.h"

#include <algorithm>
#include <utility>

namespace stagehopper::simulated {

std::vector<platform::RunningApplication> SimulatedWorkspace::runningApplications() {
    std::vector<platform::RunningApplication> applications;
    for (const auto& program : programs_) applications.push_back(program->application());
    return applications;
}

std::optional<platform::RunningApplication> SimulatedWorkspace::frontmostApplication() {
    const auto program = front ? find(*front) : nullptr;
    if (!program) return std::nullopt;
    return program->application();
}

bool SimulatedWorkspace::open(std::string_view url) {
    openedUrls.emplace_back(url);
    journal_.add("url opened: " + std::string(url));
    return canOpen;
}

void SimulatedWorkspace::start(Program program) {
    programs_.push_back(std::make_shared<RunningProgram>(std::move(program)));
}

void SimulatedWorkspace::quit(platform::Pid pid) {
    std::erase_if(programs_, [pid](const auto& program) {
        return program->application().processIdentifier == pid;
    });
}

std::shared_ptr<RunningProgram> SimulatedWorkspace::find(platform::Pid pid) const {
    const auto found = std::ranges::find_if(programs_, [pid](const auto& program) {
        return program->application().processIdentifier == pid;
    });
    return found == programs_.end() ? nullptr : *found;
}

}  // namespace stagehopper::simulated
