#include <gmock/gmock.h>

#include <thread>

#include "tests/scenario/Stage.h"

namespace stagehopper {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class DiagnosticLog : public testing::Test {
protected:
    DiagnosticLog() { stage.desktop.host.time = "15:04:05"; }
    Stage stage;
};

TEST_F(DiagnosticLog, AnEmptyDetailLeavesNoTrailingBlank) {
    stage.app->slideNavLog("app_launched", "");
    EXPECT_THAT(stage.desktop.systemLog.messages(), ElementsAre("[slide_nav] app_launched"));
    EXPECT_EQ(stage.logFile(), "[15:04:05] [slide_nav] app_launched\n");
}

TEST_F(DiagnosticLog, LinesAreAppendedToTheFileOfEarlierRuns) {
    stage.desktop.files.put(Stage::logPath, "an earlier run\n");
    stage.app->slideNavLog("a", "");
    stage.app->slideNavLog("b", "");
    EXPECT_EQ(stage.logFile(),
              "an earlier run\n[15:04:05] [slide_nav] a\n[15:04:05] [slide_nav] b\n");
}

TEST_F(DiagnosticLog, ADeletedFileIsCreatedAgainWithTheNextLine) {
    stage.app->slideNavLog("a", "");
    stage.desktop.files.remove(Stage::logPath);
    stage.app->slideNavLog("b", "");
    EXPECT_EQ(stage.logFile(), "[15:04:05] [slide_nav] b\n");
}

TEST_F(DiagnosticLog, ADetailOfSeveralLinesIsWrittenUnchanged) {
    stage.app->slideNavLog("panel_debug", "one\ntwo\n");
    EXPECT_EQ(stage.logFile(), "[15:04:05] [slide_nav] panel_debug one\ntwo\n\n");
}

TEST_F(DiagnosticLog, IfTheFileCannotBeOpenedTheLineIsDropped) {
    stage.desktop.files.put(Stage::logPath, "kept\n");
    stage.desktop.files.setWritable(Stage::logPath, false);
    stage.app->slideNavLog("a", "");
    EXPECT_EQ(stage.logFile(), "kept\n");
    EXPECT_THAT(stage.desktop.systemLog.messages(), ElementsAre("[slide_nav] a"));

    stage.desktop.files.setWritable(Stage::logPath, true);
    stage.app->slideNavLog("b", "");
    EXPECT_EQ(stage.logFile(), "kept\n[15:04:05] [slide_nav] b\n") << "the line is lost for good";
}

TEST_F(DiagnosticLog, IfTheFileCannotBeCreatedTheLineIsDropped) {
    stage.desktop.files.setCanCreate(false);
    stage.app->slideNavLog("a", "");
    EXPECT_FALSE(stage.desktop.files.exists(Stage::logPath));
    EXPECT_THAT(stage.desktop.systemLog.messages(), ElementsAre("[slide_nav] a"));
}

TEST_F(DiagnosticLog, ALinkPlantedAtTheFilesPathIsNotFollowed) {
    stage.desktop.files.put("/home/user/diary", "dear diary\n");
    stage.desktop.files.link(Stage::logPath, "/home/user/diary");
    stage.app->slideNavLog("a", "");
    EXPECT_EQ(stage.desktop.files.contents("/home/user/diary"), "dear diary\n");
    EXPECT_THAT(stage.desktop.systemLog.messages(), ElementsAre("[slide_nav] a"));
}

TEST_F(DiagnosticLog, ALineIsKeptIfTheFileAppearsBeforeItIsCreated) {
    stage.desktop.files.beforeNextCreation(
        [this] { stage.desktop.files.put(Stage::logPath, "another thread\n"); });
    stage.app->slideNavLog("a", "");
    EXPECT_EQ(stage.logFile(), "another thread\n[15:04:05] [slide_nav] a\n");
}

TEST_F(DiagnosticLog, InvalidUtf8GoesToTheSystemLogOnly) {
    stage.app->slideNavLog("panel_debug", "\xED\xA0\x80");
    EXPECT_THAT(stage.desktop.systemLog.messages(),
                ElementsAre("[slide_nav] panel_debug \xED\xA0\x80"));
    EXPECT_FALSE(stage.desktop.files.exists(Stage::logPath));
}

TEST_F(DiagnosticLog, ANulByteIsLoggedLikeAnyCharacter) {
    stage.app->slideNavLog("panel_debug", "a\0b"s);
    EXPECT_EQ(stage.logFile(), "[15:04:05] [slide_nav] panel_debug a\0b\n"s);
}

TEST_F(DiagnosticLog, LinesOfSeveralThreadsStayWhole) {
    constexpr int perThread = 200;
    const auto writer = [this](const char* event) {
        for (int i = 0; i < perThread; ++i) stage.app->slideNavLog(event, "x");
    };
    {
        const std::jthread one(writer, "one");
        const std::jthread two(writer, "two");
    }
    std::map<std::string, int> lines;
    std::istringstream file(stage.logFile());
    for (std::string line; std::getline(file, line);) ++lines[line];
    EXPECT_THAT(lines, ElementsAre(testing::Pair("[15:04:05] [slide_nav] one x", perThread),
                                   testing::Pair("[15:04:05] [slide_nav] two x", perThread)));
}

}  // namespace
}  // namespace stagehopper
