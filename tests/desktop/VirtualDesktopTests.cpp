// The virtual desktop leaves nothing behind, and says what it lacks.

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>

#include "tests/drivers/desktop/Processes.h"
#include "tests/drivers/program/DrivenProgram.h"

namespace stagehopper::desktop {
namespace {

constexpr std::chrono::seconds limit{20};

std::vector<std::string> ourEnvironment() {
    std::vector<std::string> all;
    for (char** each = environ; *each != nullptr; ++each) all.emplace_back(*each);
    return all;
}

/// Runs a command by the launcher `with-virtual-desktop`.
std::unique_ptr<ChildProgram> launch(std::vector<std::string> command,
                                     std::vector<std::string> environment = ourEnvironment()) {
    command.insert(command.begin(), {programFolder() / "with-virtual-desktop", "--"});
    return std::make_unique<ChildProgram>(
        ChildOptions{std::move(command), std::move(environment), "/", false});
}

/// The folder of a desktop whose command first prints it.
std::string folderToldBy(const ChildProgram& launcher) {
    const std::string tag = "folder ";
    if (!launcher.output().waitForLine(tag, limit)) return {};
    const auto line = launcher.output().linesFrom(0).front().text;
    return std::filesystem::path(line.substr(tag.size())).parent_path();
}

const std::vector<std::string> tellAndWait{"sh", "-c",
                                           "echo folder $XDG_RUNTIME_DIR; exec tail -f /dev/null"};

void expectNothingLeft(const std::string& folder) {
    EXPECT_TRUE(waitFor([&] { return processesWithEnvironment(folder).empty(); }, limit));
    EXPECT_TRUE(waitFor([&] { return !std::filesystem::exists(folder); }, limit));
}

TEST(VirtualDesktop, EndsAsItsCommandEnds) {
    EXPECT_EQ(launch({"sh", "-c", "exit 7"})->waitForExit(limit), 7);
    EXPECT_EQ(launch({"true"})->waitForExit(limit), 0);
}

TEST(VirtualDesktop, HandsTheRequestToEndOnToItsCommandAndLeavesNothingBehind) {
    const auto launcher = launch(tellAndWait);
    const auto folder = folderToldBy(*launcher);
    ASSERT_FALSE(folder.empty()) << launcher->output().text();
    EXPECT_FALSE(processesWithEnvironment(folder).empty());
    launcher->signal(SIGTERM);
    EXPECT_EQ(launcher->waitForExit(limit), 128 + SIGTERM);
    expectNothingLeft(folder);
}

TEST(VirtualDesktop, LeavesNothingBehindWhenItIsKilled) {
    const auto launcher = launch(tellAndWait);
    const auto folder = folderToldBy(*launcher);
    ASSERT_FALSE(folder.empty()) << launcher->output().text();
    launcher->signal(SIGKILL);
    EXPECT_EQ(launcher->waitForExit(limit), 128 + SIGKILL);
    expectNothingLeft(folder);
}

TEST(VirtualDesktop, NamesTheMissingProgram) {
    const auto launcher = launch({"true"}, {"PATH=/nowhere"});
    EXPECT_EQ(launcher->waitForExit(limit), 1);
    EXPECT_TRUE(launcher->output().waitForLine("'Xvfb' could not be started", limit).has_value())
        << launcher->output().text();
}

TEST(VirtualDesktop, ReportsACommandThatDoesNotExist) {
    const auto launcher = launch({"no-such-command"});
    EXPECT_EQ(launcher->waitForExit(limit), 1);
    EXPECT_TRUE(launcher->output().waitForLine("'no-such-command' could not be started", limit));
}

}  // namespace
}  // namespace stagehopper::desktop
