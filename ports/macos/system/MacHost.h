#pragma once

#include "platform/Host.h"

namespace stagehopper::macos_port {

/// The main bundle, this process and its user. Any thread.
class MacHost final : public platform::Host {
public:
    std::optional<std::string> bundleIdentifier() override;
    std::optional<std::filesystem::path> bundleResourceDirectory() override;
    std::vector<std::string> arguments() override;
    std::filesystem::path currentDirectory() override;
    platform::Environment environment() override;
    platform::Pid processIdentifier() override;
    std::string makeUuid() override;
    std::string localizedTime(platform::Date date) override;
};

}  // namespace stagehopper::macos_port
