// The debug log file, in a folder that all users can write to: it is made again after deletion, and
// a file planted in its place is not touched.

#include <gmock/gmock.h>

#include <sys/stat.h>

#include <fstream>
#include <regex>
#include <sstream>

#include "tests/desktop/KeptDebugLog.h"
#include "tests/desktop/RemotePanel.h"

namespace stagehopper::desktop {
namespace {

namespace fs = std::filesystem;

const fs::path logFile = debugLogFile;

std::string contents(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

class LogFile : public testing::Test {
protected:
    /// The page has a text logged; answers when the program has written it.
    static void log(RemotePanel& panel, const std::string& text) {
        const auto mark = panel->mark();
        panel.run("post('DBG:" + text + "')\n;post('DBG:end of " + text + "')");
        ASSERT_TRUE(panel->logs("panel_debug end of " + text, mark)) << panel->output();
    }

    KeptDebugLog keptLog_;
    VirtualDesktop desktop_;
};

TEST_F(LogFile, HoldsEveryLineWithItsTime) {
    RemotePanel panel(desktop_);
    log(panel, "hello");
    const std::regex line(R"(\[[^\]]+\] \[slide_nav\] [^\n]*)");
    std::istringstream lines(contents(logFile));
    std::vector<std::string> messages;
    for (std::string text; std::getline(lines, text);) {
        EXPECT_TRUE(std::regex_match(text, line)) << text;
        messages.push_back(text.substr(text.find("] ") + 2));
    }
    EXPECT_EQ(messages.front(), "[slide_nav] app_launched Stagehopper starting up");
    EXPECT_THAT(messages, testing::Contains("[slide_nav] panel_debug hello"));
}

TEST_F(LogFile, IsMadeAgainAfterItsDeletion) {
    RemotePanel panel(desktop_);
    ASSERT_TRUE(fs::remove(logFile));
    log(panel, "after");
    const auto text = contents(logFile);
    EXPECT_NE(text.find("panel_debug after"), std::string::npos) << text;
    EXPECT_EQ(text.find("app_launched"), std::string::npos) << text;
}

TEST_F(LogFile, IsKeptFromRunToRun) {
    std::ofstream(logFile) << "an earlier run\n";
    RemotePanel panel(desktop_);
    EXPECT_TRUE(contents(logFile).starts_with("an earlier run\n["));
}

TEST_F(LogFile, IsNotWrittenThroughAPlantedLink) {
    const auto diary = desktop_.folder() / "diary";
    std::ofstream(diary) << "dear diary\n";
    fs::create_symlink(diary, logFile);
    RemotePanel panel(desktop_);
    log(panel, "secret");
    EXPECT_EQ(contents(diary), "dear diary\n");
}

TEST_F(LogFile, IsNotMadeThroughALinkToNothing) {
    const auto target = desktop_.folder() / "new";
    fs::create_symlink(target, logFile);
    RemotePanel panel(desktop_);
    log(panel, "secret");
    EXPECT_FALSE(fs::exists(target));
}

TEST_F(LogFile, ThatIsAPipeWithoutAReaderDoesNotBlockTheProgram) {
    ASSERT_EQ(mkfifo(logFile.c_str(), 0600), 0);
    RemotePanel panel(desktop_);
    log(panel, "still here");
}

}  // namespace
}  // namespace stagehopper::desktop
