#include "companion/backend/BackendLog.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/companion/TemporaryFolder.h"

namespace stagehopper::companion {
namespace {

std::string contentOf(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(BackendLog, WhatComesFromOutsideCannotBreakALine) {
    EXPECT_EQ(escaped("a\nb\x1b[1m\\\x7f\xc3"), "a\\x0ab\\x1b[1m\\x5c\\x7f\\xc3");
    EXPECT_EQ(escaped(std::string(301, 'a')), std::string(300, 'a') + "...");
    EXPECT_EQ(escaped(std::string("\0", 1)), "\\x00");
}

TEST(BackendLog, WritesOneLineForEachEventIntoAFolderThatItMakes) {
    const TemporaryFolder folder;
    const std::string path = folder.path() + "/a/b/backend.log";
    BackendLog log(path);
    log.line("joined", "user=a\nb");
    log.line("left", "");
    const std::string text = contentOf(path);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2);
    EXPECT_NE(text.find(" joined user=a\\x0ab\n"), std::string::npos) << text;
}

TEST(BackendLog, AnotherRunAppends) {
    const TemporaryFolder folder;
    const std::string path = folder.path() + "/backend.log";
    BackendLog(path).line("first", "");
    BackendLog(path).line("second", "");
    EXPECT_NE(contentOf(path).find("first"), std::string::npos);
    EXPECT_NE(contentOf(path).find("second"), std::string::npos);
}

TEST(BackendLog, TheFileStaysBelowItsSize) {
    const TemporaryFolder folder;
    const std::string path = folder.path() + "/backend.log";
    BackendLog log(path, 4096);
    for (int i = 0; i < 200; ++i) {
        log.line("event", "number " + std::to_string(i));
        ASSERT_LE(std::filesystem::file_size(path), 4096U);
    }
    EXPECT_NE(contentOf(path).find("number 199"), std::string::npos) << "the newest is there";
}

TEST(BackendLog, NobodyElseMayReadIt) {
    const TemporaryFolder folder;
    const std::string path = folder.path() + "/backend.log";
    BackendLog(path).line("event", "");
    EXPECT_EQ(std::filesystem::status(path).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST(BackendLog, AFolderThatCannotBeMadeIsNoReasonToEnd) {
    BackendLog log("/proc/nowhere/backend.log");
    log.line("event", "");
}

}  // namespace
}  // namespace stagehopper::companion
