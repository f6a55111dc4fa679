#include "tests/drivers/program/DrivenProgram.h"

#include "tests/drivers/desktop/DesktopError.h"

namespace stagehopper::desktop {

namespace {

constexpr std::chrono::seconds startLimit{20};
constexpr std::string_view diagnosticPrefix = "[slide_nav] ";

std::filesystem::path executable() {
    auto file = programFolder() / "stagehopper";
    if (!std::filesystem::exists(file)) {
        throw DesktopError("the program is not built: " + file.native() + " is missing");
    }
    return file;
}

/// A copy of the executable with its pages beside it, where it looks for them. A link would not
/// do: the program looks beside the file that the link leads to.
std::filesystem::path copyWithPages(const VirtualDesktop& desktop,
                                    const std::filesystem::path& pages) {
    const auto folder = desktop.folder() / "copy" / pages.filename();
    std::filesystem::create_directories(folder);
    const auto copy = folder / "stagehopper";
    if (!std::filesystem::exists(copy)) {
        std::filesystem::copy_file(executable(), copy);
        std::filesystem::create_directory_symlink(pages, folder / "Resources");
    }
    return copy;
}

}  // namespace

std::filesystem::path programFolder() {
    return std::filesystem::read_symlink("/proc/self/exe").parent_path();
}

DrivenProgram::DrivenProgram(const VirtualDesktop& desktop,
                             const std::optional<std::filesystem::path>& pages)
    : desktop_(desktop),
      program_(desktop.start({pages ? copyWithPages(desktop, *pages) : executable()})) {
    const auto opened = [this] {
        for (const auto window : desktop_.windows().ofProcess(program_->pid())) panel_ = window;
        return panel_ != None || !program_->isRunning();
    };
    if (!waitFor(opened, startLimit) || panel_ == None) {
        throw DesktopError("Stagehopper's panel did not come up; it wrote:\n" + output());
    }
}

void DrivenProgram::click(const std::string& name, AtspiRole role) const {
    const auto& tree = desktop_.accessible();
    const auto widget = tree.waitFor(program_->pid(), role, name, startLimit);
    const auto area = tree.area(widget);
    if (!area) throw DesktopError("'" + name + "' is not on the screen");
    desktop_.user().click(area->x + area->width / 2, area->y + area->height / 2);
}

std::vector<std::string> DrivenProgram::diagnosticsSince(std::size_t mark) const {
    std::vector<std::string> found;
    for (const auto& line : program_->output().linesFrom(mark)) {
        const auto start = line.text.find(diagnosticPrefix);
        if (line.onStandardError && start != std::string::npos) {
            found.push_back(line.text.substr(start + diagnosticPrefix.size()));
        }
    }
    return found;
}

bool DrivenProgram::logs(std::string_view text, std::size_t mark, Limit limit) const {
    return program_->output().waitForLine(text, limit, mark).has_value();
}

}  // namespace stagehopper::desktop
