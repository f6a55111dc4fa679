#pragma once

#include "platform/Host.h"

namespace stagehopper::linux_port {

/// This process. Any thread. The time of day follows the locale that the entry point has set.
class LinuxHost final : public platform::Host {
public:
    /// The command line as the system handed it to `main`.
    LinuxHost(int argumentCount, const char* const* arguments);

    std::optional<std::string> bundleIdentifier() override;
    std::optional<std::filesystem::path> bundleResourceDirectory() override;
    std::vector<std::string> arguments() override { return arguments_; }
    std::filesystem::path currentDirectory() override;
    platform::Environment environment() override;
    platform::Pid processIdentifier() override;
    std::string makeUuid() override;
    std::string localizedTime(platform::Date date) override;

private:
    std::vector<std::string> arguments_;
};

}  // namespace stagehopper::linux_port
