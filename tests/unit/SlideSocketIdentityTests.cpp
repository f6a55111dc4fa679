#include "app/SlideSocketIdentity.h"

#include <gtest/gtest.h>

namespace stagehopper {
namespace {

TEST(SlideSocketIdentity, IsThePrefixAndEightDigitsOfTheUuid) {
    const auto userId = slideSocketUserId("1F3A9C0B-7D21-4E0A-9C55-0B9F6D3A1E42");
    EXPECT_EQ(userId, "overlay-native-1F3A9C0B");
    EXPECT_EQ(userId.size(), 23U);
}

}  // namespace
}  // namespace stagehopper
