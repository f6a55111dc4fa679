#pragma once

#include <atomic>

#include "platform/Host.h"

namespace stagehopper::simulated {

/// A process with the properties that a test chooses. Set its fields before other threads run.
class SimulatedHost final : public platform::Host {
public:
    std::optional<std::string> bundleIdentifier() override { return bundleId; }
    std::optional<std::filesystem::path> bundleResourceDirectory() override {
        return resourceDirectory;
    }
    std::vector<std::string> arguments() override { return commandLine; }
    std::filesystem::path currentDirectory() override { return workingDirectory; }
    platform::Environment environment() override { return variables; }
    platform::Pid processIdentifier() override { return pid; }
    /// The same sequence in every run, so that runs can be repeated exactly.
    std::string makeUuid() override;
    /// `time` if it is not empty; otherwise the date's time in UTC.
    std::string localizedTime(platform::Date date) override;

    std::optional<std::string> bundleId;
    std::optional<std::filesystem::path> resourceDirectory;
    std::vector<std::string> commandLine{"/app/stagehopper"};
    std::filesystem::path workingDirectory = "/";
    platform::Environment variables{{"HOME", "/home/user"}, {"PORT", "8080"}};
    platform::Pid pid = 4711;
    std::string time;

private:
    std::atomic<unsigned> uuids_{0};
};

}  // namespace stagehopper::simulated
