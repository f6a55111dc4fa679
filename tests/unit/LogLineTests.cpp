#include "app/LogLine.h"

#include <gtest/gtest.h>

namespace stagehopper {
namespace {

TEST(LogLine, ADashStandsForAnEmptyText) {
    EXPECT_EQ(dashIfEmpty(""), "-");
    EXPECT_EQ(dashIfEmpty("7"), "7");
}

TEST(LogLine, ADashStandsForAnAbsentTextButNotForAnEmptyOne) {
    const std::optional<std::string> room = "AB12";
    const std::optional<std::string> empty = "";
    EXPECT_EQ(dashIfAbsent(std::nullopt), "-");
    EXPECT_EQ(dashIfAbsent(empty), "");
    EXPECT_EQ(dashIfAbsent(room), "AB12");
}

}  // namespace
}  // namespace stagehopper
