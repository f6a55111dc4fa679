#include "tests/macos/recording/system/OtherPrograms.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/system/World.h"

// Also NSWorkspace and NSRunningApplication.

namespace stagehopper::recording {

namespace {

cocoa::id describedBy(Call& call, const simulated::RunningProgram& program) {
    const auto made = call.make("NSRunningApplication");
    const auto& application = program.application();
    setProperty(made, "processIdentifier", application.processIdentifier);
    const auto& identifier = application.bundleIdentifier;
    setProperty(made, "bundleIdentifier", identifier ? makeString(*identifier).get() : nullptr);
    return made;
}

cocoa::id runningApplications(Call& call) {
    std::vector<Retained> running;
    for (const auto& program : World::current().programs.all()) {
        running.emplace_back(describedBy(call, *program));
    }
    return makeArray(call, running);
}

cocoa::id frontmostApplication(Call& call) {
    const auto& programs = World::current().programs;
    const auto front = programs.front ? programs.find(*programs.front) : nullptr;
    return front ? describedBy(call, *front) : nullptr;
}

}  // namespace

simulated::RunningProgram& OtherPrograms::start(simulated::Program program) {
    programs_.push_back(std::make_shared<simulated::RunningProgram>(std::move(program)));
    return *programs_.back();
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

void defineWorkspace() {
    MessagesOf("NSWorkspace")
        .shared("sharedWorkspace")
        .on("runningApplications", runningApplications)
        .on("frontmostApplication", frontmostApplication)
        .on("openURL:", [](Call&) { return true; });
}

}  // namespace stagehopper::recording
