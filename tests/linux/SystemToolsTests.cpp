#include "ports/linux/processes/SystemTools.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "tests/linux/Variable.h"

namespace stagehopper::linux_port {
namespace {

/// A folder with a program "ping" in it.
class FolderWithPing {
public:
    FolderWithPing() {
        auto name = (std::filesystem::temp_directory_path() / "tools-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary directory");
        path_ = name;
        std::ofstream(ping()) << "#!/bin/sh\n";
        permit(std::filesystem::perms::owner_all);
    }
    ~FolderWithPing() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    FolderWithPing(const FolderWithPing&) = delete;
    FolderWithPing& operator=(const FolderWithPing&) = delete;

    void permit(std::filesystem::perms permissions) const {
        std::filesystem::permissions(ping(), permissions);
    }
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    [[nodiscard]] std::filesystem::path ping() const { return path_ / "ping"; }

private:
    std::filesystem::path path_;
};

TEST(SystemTools, TheScriptingLanguageAndTheRadioSwitchAreRefusedWithWords) {
    for (const char* tool : {"/sbin/ifconfig", "/usr/bin/osascript"}) {
        const auto substitute = systemTool({.executable = tool});
        const auto* refusal = std::get_if<Refusal>(&substitute);
        ASSERT_NE(refusal, nullptr) << tool;
        EXPECT_THAT(refusal->reason, testing::HasSubstr(tool));
    }
}

TEST(SystemTools, TheRouteListingIsAnsweredInRowsOfDefaultRoutes) {
    const auto substitute = systemTool({.executable = "/usr/sbin/netstat", .arguments = {"-rn"}});
    const auto* answer = std::get_if<Answer>(&substitute);
    ASSERT_NE(answer, nullptr);
    EXPECT_THAT(answer->output(), testing::MatchesRegex("(default [0-9.]+ UG [^ \n]+\n)*"));
}

TEST(SystemTools, PingIsTheOneInTheUsersPath) {
    const FolderWithPing folder;
    const Variable path("PATH", ("/nonexistent:" + folder.path().string()).c_str());
    const auto substitute = systemTool({.executable = "/sbin/ping"});
    const auto* executable = std::get_if<Executable>(&substitute);
    ASSERT_NE(executable, nullptr);
    EXPECT_EQ(executable->path, folder.ping());
}

TEST(SystemTools, APingThatCannotRunIsPassedOver) {
    const FolderWithPing first;
    const FolderWithPing second;
    first.permit(std::filesystem::perms::owner_read);
    const Variable path("PATH", (first.path().string() + ":" + second.path().string()).c_str());
    const auto substitute = systemTool({.executable = "/sbin/ping"});
    const auto* executable = std::get_if<Executable>(&substitute);
    ASSERT_NE(executable, nullptr);
    EXPECT_EQ(executable->path, second.ping());
}

TEST(SystemTools, EverythingElseRunsAsItStands) {
    for (const char* tool : {"/bin/sh", "/nonexistent", "/usr/sbin/netstat", "/usr/sbin/ping"}) {
        const auto substitute = systemTool({.executable = tool});
        const auto* executable = std::get_if<Executable>(&substitute);
        ASSERT_NE(executable, nullptr) << tool;
        EXPECT_EQ(executable->path, tool);
    }
}

}  // namespace
}  // namespace stagehopper::linux_port
