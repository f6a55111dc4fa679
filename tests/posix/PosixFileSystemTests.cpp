// The log file is in a folder that all users can write to. These tests show the kernel's answers to
// what others do there.

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <thread>

#include "ports/posix/PosixFileSystem.h"
#include "tests/drivers/TemporaryFolder.h"

namespace stagehopper::posix {
namespace {

using testing::HasSubstr;

class PosixFiles : public testing::Test {
protected:
    static std::string contents(const std::filesystem::path& path) {
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    const TemporaryFolder folder;
    const std::filesystem::path directory = folder.path();
    PosixFileSystem files;
};

TEST_F(PosixFiles, APipeWithoutAReaderIsNotAppendedToAndDoesNotBlock) {
    const auto log = directory / "log";
    ASSERT_EQ(::mkfifo(log.c_str(), 0600), 0);
    EXPECT_FALSE(files.appendToFile(log, "one\n"));
}

TEST_F(PosixFiles, AFileOfAnotherUserIsNotAppendedTo) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root can give a file away";
    const auto log = directory / "log";
    constexpr uid_t somebodyElse = 65534;
    ASSERT_TRUE(files.createFile(log, "theirs\n"));
    ASSERT_EQ(::chmod(log.c_str(), 0666), 0);
    ASSERT_EQ(::chown(log.c_str(), somebodyElse, static_cast<gid_t>(-1)), 0);
    EXPECT_FALSE(files.appendToFile(log, "ours\n"));
    EXPECT_EQ(contents(log), "theirs\n");
}

TEST_F(PosixFiles, WhatIsAppendedWhileAFileIsBeingMadeStays) {
    constexpr int rounds = 1000;
    for (int round = 0; round < rounds; ++round) {
        const auto log = directory / std::to_string(round);
        std::atomic<bool> appended{false};
        {
            const std::jthread other([&](const std::stop_token& stop) {
                while (!appended && !stop.stop_requested())
                    appended = files.appendToFile(log, "appended\n");
            });
            ASSERT_TRUE(files.createFile(log, "made\n"));
            while (!appended) std::this_thread::yield();
        }
        const auto found = contents(log);
        ASSERT_THAT(found, HasSubstr("made\n")) << "round " << round;
        ASSERT_THAT(found, HasSubstr("appended\n")) << "round " << round;
        std::filesystem::remove(log);
    }
}

}  // namespace
}  // namespace stagehopper::posix
