#pragma once

#include <memory>

#include "platform/Workspace.h"

namespace stagehopper::linux_port {

class X11Desktop;

/// The programs that have windows on an X desktop. Main thread only. `desktop` outlives it.
class X11Workspace final : public platform::Workspace {
public:
    explicit X11Workspace(X11Desktop& desktop) : desktop_(desktop) {}

    std::vector<platform::RunningApplication> runningApplications() override;
    std::optional<platform::RunningApplication> frontmostApplication() override;
    bool open(std::string_view url) override;

private:
    X11Desktop& desktop_;
};

}  // namespace stagehopper::linux_port
