#include "app/LogLine.h"

#include <gtest/gtest.h>

namespace stagehopper {
namespace {

TEST(LogLine, AMessageIsTheTagTheEventAndTheDetail) {
    EXPECT_EQ(diagnosticMessage("app_launched", "Stagehopper starting up"),
              "[slide_nav] app_launched Stagehopper starting up");
}

TEST(LogLine, AMessageWithoutADetailHasNoTrailingBlank) {
    EXPECT_EQ(diagnosticMessage("app_launched", ""), "[slide_nav] app_launched");
}

TEST(LogLine, AFileLineBeginsWithTheTimeAndEndsWithALineFeed) {
    EXPECT_EQ(diagnosticFileLine("15:04:05", "[slide_nav] x y"), "[15:04:05] [slide_nav] x y\n");
}

TEST(LogLine, ADetailOfSeveralLinesIsNotChanged) {
    EXPECT_EQ(diagnosticFileLine("1", diagnosticMessage("panel_debug", "a\nb\n")),
              "[1] [slide_nav] panel_debug a\nb\n\n");
}

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
