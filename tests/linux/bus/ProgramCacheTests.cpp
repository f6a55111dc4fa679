#include <gtest/gtest.h>

#include "ports/linux/atspi/ProgramCache.h"

namespace stagehopper::linux_port {
namespace {

TEST(KnownPrograms, AreFoundByTheirProcess) {
    KnownPrograms known;
    known.remember(7, {{":1.7", "/root"}, {{":1.7", "/window"}}});
    ASSERT_TRUE(known.find(7));
    EXPECT_EQ(known.find(7)->root, (ObjectReference{":1.7", "/root"}));
    EXPECT_FALSE(known.find(8));
}

TEST(KnownPrograms, ThatHaveLeftTheBusAreForgotten) {
    KnownPrograms known;
    known.remember(7, {{":1.7", "/root"}, {}});
    known.remember(8, {{":1.8", "/root"}, {}});
    known.keepOnly({{":1.8", "/root"}, {":1.9", "/root"}});
    EXPECT_FALSE(known.find(7));
    EXPECT_TRUE(known.find(8));
}

}  // namespace
}  // namespace stagehopper::linux_port
