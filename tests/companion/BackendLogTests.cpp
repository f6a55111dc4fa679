#include "companion/backend/log/BackendLog.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/drivers/TemporaryFolder.h"

namespace stagehopper::companion {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

std::string contentOf(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(BackendLog, InputCannotBreakALine) {
    EXPECT_EQ(escaped("a\nb\x1b[1m\\\x7f\xc3"), "a\\x0ab\\x1b[1m\\x5c\\x7f\\xc3");
    EXPECT_EQ(escaped(std::string(301, 'a')), std::string(300, 'a') + "...");
    EXPECT_EQ(escaped(std::string("\0", 1)), "\\x00");
}

TEST(BackendLog, CreatesItsFolderAndWritesOneLineForEachEvent) {
    const TemporaryFolder folder;
    const std::string path = folder.path() + "/a/b/backend.log";
    BackendLog log(path);
    log.line("joined", "user=a\nb");
    log.line("left", "");
    const std::string text = contentOf(path);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2);
    EXPECT_NE(text.find(" joined user=a\\x0ab\n"), std::string::npos) << text;
}

TEST(BackendLog, ALaterRunAppends) {
    const TemporaryFolder folder;
    const std::string path = folder.path() + "/backend.log";
    BackendLog(path).line("first", "");
    BackendLog(path).line("second", "");
    EXPECT_NE(contentOf(path).find("first"), std::string::npos);
    EXPECT_NE(contentOf(path).find("second"), std::string::npos);
}

TEST(BackendLog, AFullFileIsRenamed) {
    const TemporaryFolder folder;
    const std::string path = folder.path() + "/backend.log";
    BackendLog log(path, {.maxBytes = 4096});
    for (int i = 0; i < 200; ++i) {
        const std::string before = contentOf(path);
        log.line("event", "number " + std::to_string(i));
        ASSERT_LE(fs::file_size(path), 4096U);
        if (!contentOf(path).starts_with(before)) {
            ASSERT_EQ(contentOf(path + ".1"), before) << "no line was lost at " << i;
        }
    }
    EXPECT_NE(contentOf(path).find("number 199"), std::string::npos) << "the newest line";
    EXPECT_NE(contentOf(path + ".1").find(" event number "), std::string::npos);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 2);
}

TEST(BackendLog, TwoProcessesCanShareOneFile) {
    const TemporaryFolder folder;
    const std::string path = folder.path() + "/backend.log";
    BackendLog one(path, {.maxBytes = 4096});
    BackendLog other(path, {.maxBytes = 4096});
    for (int i = 0; i < 200; ++i) {
        one.line("one", std::to_string(i));
        other.line("other", std::to_string(i));
        ASSERT_LE(fs::file_size(path), 4096U);
    }
    EXPECT_NE(contentOf(path).find(" one 199\n"), std::string::npos);
    EXPECT_NE(contentOf(path).find(" other 199\n"), std::string::npos);
    EXPECT_LE(fs::file_size(path + ".1"), 4096U);
}

TEST(BackendLog, OnlyItsUserMayReadTheFileFromItsCreation) {
    const TemporaryFolder folder;
    const std::string path = folder.path() + "/backend.log";
    const int changes = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    ASSERT_GE(::inotify_add_watch(changes, folder.path().c_str(), IN_ATTRIB), 0);
    const mode_t before = ::umask(0);
    BackendLog(path).line("event", "");
    ::umask(before);
    std::array<char, 1024> events{};
    EXPECT_EQ(::read(changes, events.data(), events.size()), -1) << "its mode was changed later";
    ::close(changes);
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST(BackendLog, AnExistingFileBecomesPrivate) {
    const TemporaryFolder folder;
    const std::string path = folder.path() + "/backend.log";
    std::ofstream(path) << "old\n";
    fs::permissions(path, fs::perms::all);
    BackendLog(path).line("event", "");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST(BackendLog, ALinkIsNotWritten) {
    const TemporaryFolder folder;
    const std::string path = folder.path() + "/backend.log";
    const std::string precious = folder.path() + "/precious";
    std::ofstream(precious) << "mine\n";
    fs::create_hard_link(precious, path);
    BackendLog(path).line("event", "");
    EXPECT_EQ(contentOf(precious), "mine\n") << "a hard link";
    fs::remove(path);
    fs::create_symlink(precious, path);
    BackendLog(path).line("event", "");
    EXPECT_EQ(contentOf(precious), "mine\n") << "a symbolic link";
}

TEST(BackendLog, AnotherUsersFileIsNotWritten) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root can change the owner of a file";
    const TemporaryFolder folder;
    const std::string path = folder.path() + "/backend.log";
    std::ofstream(path) << "theirs\n";
    ASSERT_EQ(::chown(path.c_str(), 12345, 12345), 0);
    BackendLog(path).line("event", "");
    EXPECT_EQ(contentOf(path), "theirs\n");
}

TEST(BackendLog, APipeInPlaceOfTheFileDoesNotBlock) {
    const TemporaryFolder folder;
    const std::string path = folder.path() + "/backend.log";
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    BackendLog(path).line("event", "");
    EXPECT_TRUE(fs::is_fifo(path));
}

TEST(BackendLog, AFloodFromStrangersCausesOneLineASecondAndIsCounted) {
    const TemporaryFolder folder;
    const std::string path = folder.path() + "/backend.log";
    TimePoint now;
    {
        BackendLog log(path, {.now = [&] { return now; }});
        for (int i = 0; i < 1000; ++i) log.line("refused", "", BackendLog::Cause::stranger);
        log.line("joined", "", BackendLog::Cause::participant);
        now += std::chrono::seconds(1);
        for (int i = 0; i < 7; ++i) log.line("refused", "", BackendLog::Cause::stranger);
    }
    const std::string text = contentOf(path);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4) << text;
    EXPECT_THAT(text, HasSubstr(" joined \n"));
    EXPECT_THAT(text, HasSubstr(" refused  left_out=999\n"));
    EXPECT_THAT(text, HasSubstr(" left_out by=strangers left_out=6\n"));
}

/// Both ends of a channel without a reader, which fills up.
struct Unread {
    int writeEnd;
    int readEnd;
};

Unread unreadPipe() {
    std::array<int, 2> ends{};
    EXPECT_EQ(::pipe(ends.data()), 0);
    return {ends[1], ends[0]};
}

Unread unreadTerminal() {
    const int master = ::posix_openpt(O_RDWR | O_NOCTTY);
    EXPECT_EQ(::grantpt(master) + ::unlockpt(master), 0);
    return {::open(::ptsname(master), O_RDWR | O_NOCTTY), master};
}

TEST(BackendLog, AnErrorOutputWithoutAReaderDoesNotBlock) {
    for (const Unread& unread : {unreadPipe(), unreadTerminal()}) {
        const TemporaryFolder folder;
        const std::string path = folder.path() + "/backend.log";
        BackendLog log(path, {.errorOutput = unread.writeEnd});
        // More than the system buffers.
        const std::string detail(200, 'x');
        for (int i = 0; i < 2000; ++i) log.line("event", detail);
        log.line("last", "");
        EXPECT_THAT(contentOf(path), HasSubstr(" last \n"));
        std::array<char, 24> begin{};
        ASSERT_EQ(::read(unread.readEnd, begin.data(), begin.size()), 24);
        EXPECT_EQ(std::string_view(begin.data(), 2), "20") << "the first line was written";
        EXPECT_EQ(::fcntl(unread.writeEnd, F_GETFL) & O_NONBLOCK, 0)
            << "other programs write to it as well";
        ::close(unread.writeEnd);
        ::close(unread.readEnd);
    }
}

TEST(BackendLog, AFolderThatCannotBeCreatedIsIgnored) {
    BackendLog log("/proc/nowhere/backend.log");
    log.line("event", "");
}

}  // namespace
}  // namespace stagehopper::companion
