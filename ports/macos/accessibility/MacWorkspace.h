#pragma once

#include "platform/Workspace.h"

namespace stagehopper::macos_port {

/// NSWorkspace. Main thread only.
class MacWorkspace final : public platform::Workspace {
public:
    std::vector<platform::RunningApplication> runningApplications() override;
    std::optional<platform::RunningApplication> frontmostApplication() override;
    bool open(std::string_view url) override;
};

}  // namespace stagehopper::macos_port
