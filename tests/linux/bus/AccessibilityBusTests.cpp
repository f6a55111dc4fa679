// The accessibility bus and the service that knows it come late, hang, die and come back; the main
// thread goes on.

#include <gmock/gmock.h>

#include <csignal>
#include <thread>

#include "ports/linux/atspi/AtSpiAccessibility.h"
#include "ports/linux/x11/X11Desktop.h"
#include "tests/linux/bus/AccessibilitySession.h"

namespace stagehopper::linux_port {
namespace {

using namespace std::chrono_literals;
using platform::AccessibilityAttribute;
using testing::ElementsAre;
using testing::IsEmpty;

/// What the main thread may wait for a bus is 80 ms; the rest is for a machine with much else to
/// do. Waiting for a program takes 500 ms.
constexpr auto quick = 250ms;

class AccessibilityBusLife : public testing::Test {
protected:
    AtSpiAccessibility& accessibility() {
        if (!accessibility_) {
            accessibility_ = std::make_unique<AtSpiAccessibility>(desktop_);
        }
        return *accessibility_;
    }
    bool becomesTrusted() {
        return AccessibilitySession::runUntil(
            [this] { return accessibility().isProcessTrusted(); });
    }
    bool losesTrust() {
        return AccessibilitySession::runUntil(
            [this] { return !accessibility().isProcessTrusted(); });
    }
    std::vector<std::string> windowsOf(platform::Pid process) {
        std::vector<std::string> titles;
        const auto windows = accessibility().applicationElement(process)->attributeValue(
            AccessibilityAttribute::windows);
        if (!windows) return titles;
        for (const auto& window : std::get<platform::AttributeList>(windows->value)) {
            const auto title = std::get<platform::UIElementRef>(window.value)
                                   ->attributeValue(AccessibilityAttribute::title);
            titles.push_back(title ? std::get<std::string>(title->value) : "unreadable");
        }
        return titles;
    }
    template <class Action>
    static std::chrono::milliseconds duration(Action action) {
        const auto start = std::chrono::steady_clock::now();
        action();
        return std::chrono::duration_cast<std::chrono::milliseconds>(
            std::chrono::steady_clock::now() - start);
    }

    AccessibilitySession session;

private:
    X11Desktop desktop_;
    std::unique_ptr<AtSpiAccessibility> accessibility_;
};

TEST_F(AccessibilityBusLife, AProgramOnTheBusShowsItsWindows) {
    session.startService();
    const auto& program = session.startProgram();
    ASSERT_TRUE(becomesTrusted());
    EXPECT_THAT(windowsOf(program.pid()), ElementsAre("deck"));
    EXPECT_THAT(windowsOf(program.pid()), ElementsAre("deck"));
}

TEST_F(AccessibilityBusLife, AServiceThatStartsLateIsTrustedAfterItsStart) {
    EXPECT_FALSE(accessibility().isProcessTrusted());
    EXPECT_FALSE(AccessibilitySession::runUntil(
        [this] { return accessibility().isProcessTrusted(); }, 100ms));
    session.startService();
    EXPECT_TRUE(becomesTrusted());
}

TEST_F(AccessibilityBusLife, AServiceThatHangsAtFirstIsTrustedWhenItAnswers) {
    session.serviceHangs = true;
    session.startService();
    EXPECT_LT(duration([this] { EXPECT_FALSE(accessibility().isProcessTrusted()); }), quick);
    session.stopService();
    session.serviceHangs = false;
    session.startService();
    EXPECT_TRUE(becomesTrusted());
}

TEST_F(AccessibilityBusLife, ASessionBusThatHangsCostsTheMainThreadNothing) {
    session.startService();
    session.sessionBus.hang();
    EXPECT_LT(duration([this] { EXPECT_FALSE(accessibility().isProcessTrusted()); }), quick);
    session.sessionBus.goOn();
    EXPECT_TRUE(becomesTrusted());
}

TEST_F(AccessibilityBusLife, AnAccessibilityBusThatHangsAtTheStartCostsTheMainThreadNothing) {
    session.startService();
    session.accessibilityBus.hang();
    EXPECT_LT(duration([this] { EXPECT_FALSE(accessibility().isProcessTrusted()); }), quick);
    session.accessibilityBus.goOn();
    EXPECT_TRUE(becomesTrusted());
}

TEST_F(AccessibilityBusLife, ABusThatHangsLaterCostsOneLimitAndIsReadAgainWhenItContinues) {
    session.startService();
    const auto& program = session.startProgram();
    ASSERT_TRUE(becomesTrusted());
    ASSERT_THAT(windowsOf(program.pid()), ElementsAre("deck"));
    session.accessibilityBus.hang();
    EXPECT_LT(duration([&] { EXPECT_THAT(windowsOf(program.pid()), IsEmpty()); }), quick);
    EXPECT_LT(duration([&] {
                  for (int i = 0; i < 20; ++i) EXPECT_THAT(windowsOf(program.pid()), IsEmpty());
              }),
              quick);
    session.accessibilityBus.goOn();
    EXPECT_TRUE(AccessibilitySession::runUntil(
        [&] { return windowsOf(program.pid()) == std::vector<std::string>{"deck"}; }));
}

TEST_F(AccessibilityBusLife, AProgramThatHangsCostsOneLimitAndTheOthersAreRead) {
    session.startService();
    const auto& program = session.startProgram();
    ASSERT_TRUE(becomesTrusted());
    ASSERT_THAT(windowsOf(program.pid()), ElementsAre("deck"));
    program.signal(SIGSTOP);
    const auto first = duration([&] { EXPECT_THAT(windowsOf(program.pid()), IsEmpty()); });
    EXPECT_GE(first, 450ms);
    EXPECT_LT(duration([&] { EXPECT_THAT(windowsOf(program.pid()), IsEmpty()); }), quick);
    program.signal(SIGCONT);
    EXPECT_TRUE(AccessibilitySession::runUntil(
        [&] { return windowsOf(program.pid()) == std::vector<std::string>{"deck"}; }));
}

TEST_F(AccessibilityBusLife, ABusThatDiedYieldsNothingAndIsUsedAgainWhenItIsBack) {
    session.startService();
    platform::Pid before = session.startProgram().pid();
    ASSERT_TRUE(becomesTrusted());
    ASSERT_THAT(windowsOf(before), ElementsAre("deck"));
    session.accessibilityBus.die();
    EXPECT_LT(duration([&] { EXPECT_THAT(windowsOf(before), IsEmpty()); }), quick);
    EXPECT_LT(duration([&] { EXPECT_THAT(windowsOf(before), IsEmpty()); }), quick);
    EXPECT_TRUE(losesTrust());

    session.accessibilityBus.start();
    const auto& program = session.startProgram();
    ASSERT_TRUE(becomesTrusted());
    EXPECT_THAT(windowsOf(program.pid()), ElementsAre("deck"));
}

TEST_F(AccessibilityBusLife, ABusThatDiesWhileAProgramIsAskedYieldsNothing) {
    session.startService();
    const auto& program = session.startProgram();
    ASSERT_TRUE(becomesTrusted());
    ASSERT_THAT(windowsOf(program.pid()), ElementsAre("deck"));
    // The program answers nothing, and the bus dies while we wait for it.
    program.signal(SIGUSR1);
    ASSERT_TRUE(program.output().waitForLine("silent", 5s));
    std::thread death([&, mark = program.output().size()] {
        EXPECT_TRUE(program.output().waitForLine("asked", 5s, mark));
        session.accessibilityBus.die();
    });
    EXPECT_THAT(windowsOf(program.pid()), IsEmpty());
    death.join();
    EXPECT_THAT(windowsOf(program.pid()), IsEmpty());
}

TEST_F(AccessibilityBusLife, TheEndOfTheSessionBusEndsTheTrustUntilTheBusIsBack) {
    session.startService();
    ASSERT_TRUE(becomesTrusted());
    session.stopService();
    session.sessionBus.die();
    EXPECT_TRUE(losesTrust());
    session.sessionBus.start();
    session.startService();
    EXPECT_TRUE(becomesTrusted());
}

TEST_F(AccessibilityBusLife, WithoutASessionBusNothingWaits) {
    session.sessionBus.die();
    EXPECT_LT(duration([this] { EXPECT_FALSE(accessibility().isProcessTrusted()); }), quick);
}

}  // namespace
}  // namespace stagehopper::linux_port
