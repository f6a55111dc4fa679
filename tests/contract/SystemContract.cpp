// Files, process, text, other programs: the same on every port.

#include <gmock/gmock.h>

#include <chrono>
#include <limits>
#include <set>

#include "platform/Accessibility.h"
#include "platform/FileSystem.h"
#include "platform/Host.h"
#include "platform/Text.h"
#include "tests/contract/PortTest.h"

namespace stagehopper {
namespace {

using namespace std::string_literals;

class SystemContract : public PortTest {
protected:
    std::filesystem::path directory = harness->temporaryDirectory();
    std::filesystem::path file = directory / "a.log";
};

TEST_F(SystemContract, AFileIsCreatedWithItsContents) {
    EXPECT_FALSE(port.fileSystem.fileExists(file));
    EXPECT_TRUE(port.fileSystem.createFile(file, "one\n"));
    EXPECT_TRUE(port.fileSystem.fileExists(file));
    EXPECT_EQ(harness->contentsOf(file), "one\n");
}

TEST_F(SystemContract, BytesAreAppended) {
    harness->plantFile(file, "one\n");
    EXPECT_TRUE(port.fileSystem.appendToFile(file, "t\0wo\n"s));
    EXPECT_EQ(harness->contentsOf(file), "one\nt\0wo\n"s);
}

TEST_F(SystemContract, CreatingDoesNotChangeAnExistingFile) {
    harness->plantFile(file, "one\n");
    EXPECT_FALSE(port.fileSystem.createFile(file, "two\n"));
    EXPECT_EQ(harness->contentsOf(file), "one\n");
}

TEST_F(SystemContract, AppendingNeverCreatesAFile) {
    EXPECT_FALSE(port.fileSystem.appendToFile(file, "one\n"));
    EXPECT_FALSE(port.fileSystem.fileExists(file));
}

TEST_F(SystemContract, AppendingDoesNotFollowALink) {
    harness->plantFile(directory / "diary", "dear diary\n");
    harness->plantLink(file, directory / "diary");
    EXPECT_FALSE(port.fileSystem.appendToFile(file, "one\n"));
    EXPECT_EQ(harness->contentsOf(directory / "diary"), "dear diary\n");
}

TEST_F(SystemContract, AppendingRefusesAFileWithASecondName) {
    harness->plantFile(directory / "diary", "dear diary\n");
    harness->plantHardLink(file, directory / "diary");
    EXPECT_FALSE(port.fileSystem.appendToFile(file, "one\n"));
    EXPECT_EQ(harness->contentsOf(directory / "diary"), "dear diary\n");
}

TEST_F(SystemContract, CreatingDoesNotFollowADanglingLink) {
    harness->plantLink(file, directory / "new");
    EXPECT_FALSE(port.fileSystem.fileExists(file));
    EXPECT_FALSE(port.fileSystem.createFile(file, "one\n"));
    EXPECT_FALSE(port.fileSystem.fileExists(directory / "new"));
}

TEST_F(SystemContract, LinksAreResolvedAsFarAsThePathExists) {
    harness->plantFile(directory / "real" / "program", "");
    harness->plantLink(directory / "link", directory / "real");
    const auto real = port.fileSystem.resolvingSymlinks(directory / "real");
    EXPECT_EQ(port.fileSystem.resolvingSymlinks(directory / "link" / "program"), real / "program");
    EXPECT_EQ(port.fileSystem.resolvingSymlinks(directory / "link" / "none"), real / "none");
}

TEST_F(SystemContract, ExecutableFilesAndDirectoriesCountAsExecutable) {
    harness->plantFile(file, "one\n");
    harness->plantExecutable(directory / "program");
    harness->plantLink(directory / "link", directory / "program");
    harness->plantLink(directory / "dangling", directory / "nothing");
    EXPECT_TRUE(port.fileSystem.isExecutableFile(directory / "program"));
    EXPECT_TRUE(port.fileSystem.isExecutableFile(directory / "link"));
    EXPECT_FALSE(port.fileSystem.isExecutableFile(file));
    EXPECT_FALSE(port.fileSystem.isExecutableFile(directory / "dangling"));
    EXPECT_TRUE(port.fileSystem.isExecutableFile(directory));
    EXPECT_FALSE(port.fileSystem.isExecutableFile(directory / "nothing"));
}

TEST_F(SystemContract, AProcessHasAnIdAndNamedVariables) {
    EXPECT_GT(port.host.processIdentifier(), 0);
    const auto environment = port.host.environment();
    EXPECT_FALSE(environment.empty());
    EXPECT_THAT(environment, testing::Not(testing::Contains(testing::Key(""))));
}

TEST_F(SystemContract, UuidsHaveTheStandardFormAndDiffer) {
    std::set<std::string> uuids;
    for (int i = 0; i < 50; ++i) uuids.insert(port.host.makeUuid());
    EXPECT_EQ(uuids.size(), 50U);
    EXPECT_THAT(uuids, testing::Each(testing::MatchesRegex(
                           "[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}")));
}

TEST_F(SystemContract, FirstEightCharactersOfUuidsDiffer) {
    EXPECT_NE(port.host.makeUuid().substr(0, 8), port.host.makeUuid().substr(0, 8));
}

TEST_F(SystemContract, AProcessHasACommandLineAndAWorkingDirectory) {
    EXPECT_FALSE(port.host.arguments().empty());
    EXPECT_TRUE(port.host.currentDirectory().is_absolute());
}

TEST_F(SystemContract, ALocalTimeHasSecondsAndNoDate) {
    using namespace std::chrono_literals;
    // In a week without a change of daylight-saving time anywhere.
    const platform::Date moment = std::chrono::sys_days(2026y / 1 / 14) + 9h + 4min + 5s;
    const auto time = port.host.localizedTime(moment);
    EXPECT_NE(time, "");
    EXPECT_NE(time, port.host.localizedTime(moment + 1s));
    EXPECT_NE(time, port.host.localizedTime(moment + 1min));
    EXPECT_NE(time, port.host.localizedTime(moment + 1h));
    EXPECT_EQ(time, port.host.localizedTime(moment + 24h));
    EXPECT_EQ(time, port.host.localizedTime(moment + 48h));
}

TEST_F(SystemContract, FoldingRemovesCaseAndDiacritics) {
    EXPECT_EQ(port.text.folded("ÉtÜde"), port.text.folded("etude"));
    EXPECT_EQ(port.text.folded("e\u0301"), port.text.folded("E"));
    EXPECT_NE(port.text.folded("next"), port.text.folded("text"));
}

TEST_F(SystemContract, FoldingKeepsOtherFormsOfCharacters) {
    EXPECT_EQ(port.text.folded("next…"), "next…");
    EXPECT_NE(port.text.folded("ｎｅｘｔ"), "next");
    EXPECT_NE(port.text.folded("2²"), "22");
}

TEST_F(SystemContract, FoldingKeepsChinese) {
    EXPECT_EQ(port.text.folded("下一张幻灯片"), "下一张幻灯片");
}

TEST_F(SystemContract, LowerCaseKeepsDiacritics) {
    EXPECT_EQ(port.text.lowercased("ÉtÜde NEXT"), "étüde next");
}

TEST_F(SystemContract, MalformedTextIsMadeWellFormed) {
    EXPECT_EQ(port.text.folded("a\xFF"), "a\uFFFD");
    EXPECT_EQ(port.text.lowercased("A\xFF"), "a\uFFFD");
}

constexpr platform::Pid nobody = std::numeric_limits<platform::Pid>::max();

TEST_F(SystemContract, AnUnknownProcessHasNoAttributesAndCannotBePressed) {
    const auto element = port.accessibility.applicationElement(nobody);
    ASSERT_NE(element, nullptr);
    for (const auto attribute :
         {platform::AccessibilityAttribute::windows, platform::AccessibilityAttribute::menuBar,
          platform::AccessibilityAttribute::focusedWindow}) {
        EXPECT_FALSE(element->attributeValue(attribute));
    }
    EXPECT_NE(element->press(), platform::AccessibilityError::success);
}

}  // namespace
}  // namespace stagehopper
