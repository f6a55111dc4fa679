#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "tests/drivers/desktop/VirtualDesktop.h"

namespace stagehopper::desktop {

/// The macOS port's program running on GNUstep, on a virtual desktop that outlives it. One thread.
class GnustepProgram {
public:
    /// Starts it with this page and with a shell script as its backend, and waits for its panel;
    /// throws DesktopError.
    GnustepProgram(const VirtualDesktop& desktop, const std::string& page,
                   const std::string& backendScript);

    [[nodiscard]] ChildProgram& program() { return *program_; }
    [[nodiscard]] Window panel() const { return panel_; }
    /// The folder of its pages and its backend.
    [[nodiscard]] std::filesystem::path resources() const { return folder_ / "Resources"; }
    /// Waits for a line that contains `text`.
    [[nodiscard]] bool says(const std::string& text) const;
    /// The messages that it reported as absent from GNUstep.
    [[nodiscard]] std::vector<std::string> missing() const;

private:
    void start(const VirtualDesktop& desktop);

    std::filesystem::path folder_;
    std::unique_ptr<ChildProgram> program_;
    Window panel_ = None;
};

}  // namespace stagehopper::desktop
