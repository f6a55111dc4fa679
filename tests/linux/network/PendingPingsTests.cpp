// Which pong answers which ping.

#include "ports/linux/network/PendingPings.h"

#include <gmock/gmock.h>

namespace stagehopper::linux_port {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PendingPingsTest : public testing::Test {
protected:
    PendingPings pending;
    std::vector<int> heard;

    /// Three pings, of which two have been sent.
    void SetUp() override {
        for (int i = 1; i <= 3; ++i) pending.add([this, i](const auto&) { heard.push_back(i); });
        ASSERT_EQ(pending.takeUnsent(), "1");
        ASSERT_EQ(pending.takeUnsent(), "2");
    }
    static void call(const std::vector<PendingPings::Handler>& handlers) {
        for (const auto& handler : handlers) handler(std::nullopt);
    }
};

TEST_F(PendingPingsTest, APongAnswersItsPing) {
    call(pending.answeredBy("1"));
    EXPECT_THAT(heard, ElementsAre(1));
    call(pending.answeredBy("2"));
    EXPECT_THAT(heard, ElementsAre(1, 2));
}

TEST_F(PendingPingsTest, APongAnswersThePingsBeforeIt) {
    call(pending.answeredBy("2"));
    EXPECT_THAT(heard, ElementsAre(1, 2));
}

TEST_F(PendingPingsTest, ASecondPongForTheSamePingAnswersNothing) {
    call(pending.answeredBy("1"));
    EXPECT_THAT(pending.answeredBy("1"), IsEmpty());
}

TEST_F(PendingPingsTest, APongForAPingThatWasNotSentAnswersNothing) {
    EXPECT_THAT(pending.answeredBy("3"), IsEmpty());
}

TEST_F(PendingPingsTest, AnUnsolicitedPongAnswersNothing) {
    for (const char* payload : {"", "x", "1x", " 1", "-1", "99999999999999999999"}) {
        EXPECT_THAT(pending.answeredBy(payload), IsEmpty()) << payload;
    }
}

TEST_F(PendingPingsTest, TheEndReturnsAllWaitingHandlers) {
    call(pending.answeredBy("1"));
    heard.clear();
    call(pending.takeAll());
    EXPECT_THAT(heard, ElementsAre(2, 3));
    EXPECT_EQ(pending.takeUnsent(), std::nullopt);
    EXPECT_THAT(pending.takeAll(), IsEmpty());
}

}  // namespace
}  // namespace stagehopper::linux_port
