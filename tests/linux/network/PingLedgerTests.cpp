// Which pong answers which ping.

#include "ports/linux/network/PingLedger.h"

#include <gmock/gmock.h>

namespace stagehopper::linux_port {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PingLedgerTest : public testing::Test {
protected:
    PingLedger ledger;
    std::vector<int> heard;

    /// Three pings, of which two have been sent.
    void SetUp() override {
        for (int i = 1; i <= 3; ++i) ledger.add([this, i](const auto&) { heard.push_back(i); });
        ASSERT_EQ(ledger.takeUnsent(), "1");
        ASSERT_EQ(ledger.takeUnsent(), "2");
    }
    static void call(const std::vector<PingLedger::Handler>& handlers) {
        for (const auto& handler : handlers) handler(std::nullopt);
    }
};

TEST_F(PingLedgerTest, APongAnswersItsPing) {
    call(ledger.answeredBy("1"));
    EXPECT_THAT(heard, ElementsAre(1));
    call(ledger.answeredBy("2"));
    EXPECT_THAT(heard, ElementsAre(1, 2));
}

TEST_F(PingLedgerTest, APongAnswersThePingsBeforeIt) {
    call(ledger.answeredBy("2"));
    EXPECT_THAT(heard, ElementsAre(1, 2));
}

TEST_F(PingLedgerTest, ASecondPongForTheSamePingAnswersNothing) {
    call(ledger.answeredBy("1"));
    EXPECT_THAT(ledger.answeredBy("1"), IsEmpty());
}

TEST_F(PingLedgerTest, APongForAPingThatWasNotSentAnswersNothing) {
    EXPECT_THAT(ledger.answeredBy("3"), IsEmpty());
}

TEST_F(PingLedgerTest, AnUnsolicitedPongAnswersNothing) {
    for (const char* payload : {"", "x", "1x", " 1", "-1", "99999999999999999999"}) {
        EXPECT_THAT(ledger.answeredBy(payload), IsEmpty()) << payload;
    }
}

TEST_F(PingLedgerTest, TheEndReturnsAllWaitingHandlers) {
    call(ledger.answeredBy("1"));
    heard.clear();
    call(ledger.takeAll());
    EXPECT_THAT(heard, ElementsAre(2, 3));
    EXPECT_EQ(ledger.takeUnsent(), std::nullopt);
    EXPECT_THAT(ledger.takeAll(), IsEmpty());
}

}  // namespace
}  // namespace stagehopper::linux_port
