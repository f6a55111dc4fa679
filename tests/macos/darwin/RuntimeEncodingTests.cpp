#include <gtest/gtest.h>

#include "tests/macos/darwin/RuntimeEncoding.h"

namespace stagehopper::macos_facts {
namespace {

TEST(RuntimeEncoding, LosesTheOffsetsButNotTheDigitsOfNames) {
    EXPECT_EQ(asInTheTable("v24@0:8q16", BoolIs::bool8), "v@:q");
    EXPECT_EQ(asInTheTable("v56@0:8{Rect2={CGPoint=dd}{CGSize=dd}}16B48", BoolIs::bool8),
              "v@:{Rect2={CGPoint=dd}{CGSize=dd}}B");
    EXPECT_EQ(asInTheTable("Vv16@0:8", BoolIs::bool8), "Vv@:");
}

TEST(RuntimeEncoding, LosesWhatTheTableDoesNotHaveOfObjectsAndBlocks) {
    EXPECT_EQ(asInTheTable("v32@0:8@\"NSString\"16@?<v@?@\"NSData\"@\"NSError\">24", BoolIs::bool8),
              "v@:@@?");
}

TEST(RuntimeEncoding, CallsASignedCharBoolOnlyWhereThatIsWhatBoolsAre) {
    EXPECT_EQ(asInTheTable("c24@0:8c16", BoolIs::signedChar), "B@:B");
    EXPECT_EQ(asInTheTable("c24@0:8c16", BoolIs::bool8), "c@:c");
}

}  // namespace
}  // namespace stagehopper::macos_facts
