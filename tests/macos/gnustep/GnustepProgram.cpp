#include "tests/macos/gnustep/GnustepProgram.h"

#include <fstream>

#include "tests/drivers/desktop/DesktopError.h"

namespace stagehopper::desktop {

namespace {

constexpr std::chrono::seconds limit{15};
constexpr const char* fileName = "stagehopper-on-gnustep";

std::filesystem::path fileBesideOurs() {
    return std::filesystem::read_symlink("/proc/self/exe").parent_path() / fileName;
}

void write(const std::filesystem::path& file, const std::string& text) {
    std::ofstream stream(file);
    if (!(stream << text).flush()) throw DesktopError("cannot write " + file.native());
}

/// With a font that has the Chinese characters, and the menu at the top of the screen.
std::vector<std::string> command(const std::filesystem::path& program) {
    const std::string font = "WenQuanYiMicroHei";
    std::vector<std::string> words{program, "-NSMenuInterfaceStyle", "NSMacintoshInterfaceStyle"};
    for (const char* role : {"-NSFont", "-NSBoldFont", "-NSMenuFont"}) {
        words.insert(words.end(), {role, font});
    }
    return words;
}

}  // namespace

GnustepProgram::GnustepProgram(const VirtualDesktop& desktop, const std::string& page,
                               const std::string& backendScript)
    : folder_(desktop.folder() / "program") {
    // In a folder of its own, for it looks for its pages and its backend beside itself.
    std::filesystem::create_directories(resources());
    std::filesystem::copy_file(fileBesideOurs(), folder_ / fileName);
    write(resources() / "panel.html", page);
    const auto backend = resources() / "StagehopperBackend-arm64";
    write(backend, "#!/bin/sh\n" + backendScript + "\n");
    std::filesystem::permissions(backend, std::filesystem::perms::owner_all);
    start(desktop);
}

void GnustepProgram::start(const VirtualDesktop& desktop) {
    program_ = desktop.start(command(folder_ / fileName));
    const auto look = [&] {
        panel_ = desktop.windows().withTitle("Stagehopper").value_or(Window{None});
        return panel_ != None || !program_->isRunning();
    };
    if (!waitFor(look, limit) || panel_ == None) {
        throw DesktopError("the program did not show its panel; it wrote:\n" +
                           program_->output().text());
    }
}

bool GnustepProgram::says(const std::string& text) const {
    return program_->output().waitForLine(text, limit).has_value();
}

std::vector<std::string> GnustepProgram::missing() const {
    constexpr std::string_view beginning = "GNUstep has no ";
    std::vector<std::string> found;
    for (const auto& line : program_->output().linesFrom(0)) {
        if (line.text.starts_with(beginning)) found.push_back(line.text.substr(beginning.size()));
    }
    return found;
}

}  // namespace stagehopper::desktop
