#include "ports/webkit/ReloadLimit.h"

#include <gtest/gtest.h>

namespace stagehopper::webkit_ports {
namespace {

using namespace std::chrono_literals;

TEST(ReloadLimit, AllowsThreeReloadsWithinAMinute) {
    ReloadLimit limit;
    EXPECT_TRUE(limit.allowsReload(10s));
    EXPECT_TRUE(limit.allowsReload(11s));
    EXPECT_TRUE(limit.allowsReload(69s));
    EXPECT_FALSE(limit.allowsReload(69.9s));
}

TEST(ReloadLimit, ForgetsAReloadAfterAMinute) {
    ReloadLimit limit;
    for (const auto time : {10s, 20s, 30s}) EXPECT_TRUE(limit.allowsReload(time));
    EXPECT_TRUE(limit.allowsReload(70s));
    EXPECT_FALSE(limit.allowsReload(79s));
    EXPECT_TRUE(limit.allowsReload(80s));
}

}  // namespace
}  // namespace stagehopper::webkit_ports
