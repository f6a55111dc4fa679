#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/drivers/desktop/VirtualDesktop.h"

namespace stagehopper::desktop {

/// The real program `stagehopper` from our own folder, running on a virtual desktop. One thread.
/// The desktop must outlive it.
class DrivenProgram {
public:
    /// Starts it with its own pages, or with those of this folder, and waits for its window;
    /// throws DesktopError.
    explicit DrivenProgram(const VirtualDesktop& desktop,
                           const std::optional<std::filesystem::path>& pages = std::nullopt);

    [[nodiscard]] ChildProgram& program() { return *program_; }
    [[nodiscard]] Window panel() const { return panel_; }
    /// Waits for a widget of the panel page and clicks its middle with the pointer; throws
    /// DesktopError.
    void click(const std::string& name, AtspiRole role = ATSPI_ROLE_PUSH_BUTTON) const;

    /// How many lines it has written; a mark for the calls below.
    [[nodiscard]] std::size_t mark() const { return program_->output().size(); }
    /// The diagnostic lines written since a mark, without their common beginning.
    [[nodiscard]] std::vector<std::string> diagnosticsSince(std::size_t mark) const;
    /// Waits for a diagnostic line that contains `text`.
    [[nodiscard]] bool logs(std::string_view text, std::size_t mark,
                            Limit limit = std::chrono::seconds(10)) const;
    /// Everything it has written, for an error message.
    [[nodiscard]] std::string output() const { return program_->output().text(); }

private:
    const VirtualDesktop& desktop_;
    std::unique_ptr<ChildProgram> program_;
    Window panel_ = None;
};

/// The folder of the running executable: the programs that belong together lie side by side.
[[nodiscard]] std::filesystem::path programFolder();

}  // namespace stagehopper::desktop
