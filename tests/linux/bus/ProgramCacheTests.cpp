#include <gtest/gtest.h>

#include "ports/linux/atspi/ProgramCache.h"

namespace stagehopper::linux_port {
namespace {

TEST(ProgramCache, FindsAProgramByItsProcess) {
    ProgramCache cache;
    cache.store(7, {{":1.7", "/root"}, {{":1.7", "/window"}}});
    ASSERT_TRUE(cache.find(7));
    EXPECT_EQ(cache.find(7)->root, (ObjectReference{":1.7", "/root"}));
    EXPECT_FALSE(cache.find(8));
}

TEST(ProgramCache, DropsProgramsThatHaveLeftTheBus) {
    ProgramCache cache;
    cache.store(7, {{":1.7", "/root"}, {}});
    cache.store(8, {{":1.8", "/root"}, {}});
    cache.keepOnly({{":1.8", "/root"}, {":1.9", "/root"}});
    EXPECT_FALSE(cache.find(7));
    EXPECT_TRUE(cache.find(8));
}

}  // namespace
}  // namespace stagehopper::linux_port
